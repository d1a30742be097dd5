<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="pl_PL" sourcelanguage="en">
<context>
    <name>translation</name>
    <message>
        <source>Message received</source>
        <comment>notification event</comment>
        <translation>Otrzymano wiadomość</translation>
    </message>
    <message>
        <source>When you receive any message</source>
        <comment>notification event description</comment>
        <translation>Gdy otrzymasz dowolną wiadomość</translation>
    </message>
    <message>
        <source>Message received (Background chat)</source>
        <comment>notification event</comment>
        <translation>Otrzymano wiadomość (rozmowa w tle)</translation>
    </message>
    <message>
        <source>When you receive a message in a background chat</source>
        <comment>notification event description</comment>
        <translation>Gdy otrzymasz wiadomość w rozmowie w tle</translation>
    </message>
    <message>
        <source>Message received (Initial)</source>
        <comment>notification event</comment>
        <translation>Otrzymano wiadomość (pierwsza)</translation>
    </message>
    <message>
        <source>When you receive an initial message</source>
        <comment>notification event description</comment>
        <translation>Gdy otrzymasz pierwszą wiadomość rozmowy</translation>
    </message>
    <message>
        <source>Message sent</source>
        <comment>notification event</comment>
        <translation>Wysłano wiadomość</translation>
    </message>
    <message>
        <source>When you sent message</source>
        <comment>notification event description</comment>
        <translation>Gdy wyślesz wiadomość</translation>
    </message>
    <message>
        <source>Alert received</source>
        <comment>notification event</comment>
        <translation>Otrzymano alert</translation>
    </message>
    <message>
        <source>Alert received</source>
        <comment>notification event description</comment>
        <translation>Otrzymano alert</translation>
    </message>
    <message>
        <source>Alert sent</source>
        <comment>notification event</comment>
        <translation>Wysłano alert</translation>
    </message>
    <message>
        <source>Alert sent</source>
        <comment>notification event description</comment>
        <translation>Wysłano alert</translation>
    </message>
    <message>
        <source>New email</source>
        <comment>notification event</comment>
        <translation>Nowy e-mail</translation>
    </message>
    <message>
        <source>New email</source>
        <comment>notification event description</comment>
        <translation>Nowy e-mail</translation>
    </message>
    <message>
        <source>Information message</source>
        <comment>notification event</comment>
        <translation>Komunikat informacyjny</translation>
    </message>
    <message>
        <source>Program information</source>
        <comment>notification event description</comment>
        <translation>Informacja programu</translation>
    </message>
    <message>
        <source>Error message</source>
        <comment>notification event</comment>
        <translation>Komunikat o błędzie</translation>
    </message>
    <message>
        <source>Program error</source>
        <comment>notification event description</comment>
        <translation>Błąd programu</translation>
    </message>
    <message>
        <source>Account logged in</source>
        <comment>notification event</comment>
        <translation>Zalogowano konto</translation>
    </message>
    <message>
        <source>Account logged in</source>
        <comment>notification event description</comment>
        <translation>Zalogowano konto</translation>
    </message>
    <message>
        <source>Buddy went offline</source>
        <comment>notification event</comment>
        <translation>Znajomy rozłączył się</translation>
    </message>
    <message>
        <source>When buddy changes presence to unavailable</source>
        <comment>notification event description</comment>
        <translation>Gdy znajomy staje się niedostępny</translation>
    </message>
    <message>
        <source>Buddy connected</source>
        <comment>notification event</comment>
        <translation>Znajomy połączył się</translation>
    </message>
    <message>
        <source>When buddy changes presence from unavailable</source>
        <comment>notification event description</comment>
        <translation>Gdy znajomy przestaje być niedostępny</translation>
    </message>
    <message>
        <source>Buddy went away</source>
        <comment>notification event</comment>
        <translation>Znajomy odszedł</translation>
    </message>
    <message>
        <source>When buddy becomes away</source>
        <comment>notification event description</comment>
        <translation>Gdy znajomy odchodzi</translation>
    </message>
    <message>
        <source>Buddy changed status</source>
        <comment>notification event</comment>
        <translation>Znajomy zmienił status</translation>
    </message>
    <message>
        <source>When buddy changes status</source>
        <comment>notification event description</comment>
        <translation>Gdy znajomy zmienia status</translation>
    </message>
    <message>
        <source>Typing started</source>
        <comment>notification event</comment>
        <translation>Rozpoczęto pisanie</translation>
    </message>
    <message>
        <source>When buddy start typing</source>
        <comment>notification event description</comment>
        <translation>Gdy znajomy zaczyna pisać</translation>
    </message>
    <message>
        <source>Typing stoped</source>
        <comment>notification event</comment>
        <translation>Zakończono pisanie</translation>
    </message>
    <message>
        <source>When buddy stop typing</source>
        <comment>notification event description</comment>
        <translation>Gdy znajomy przestaje pisać</translation>
    </message>
    <message>
        <source>Conference message received</source>
        <comment>notification event</comment>
        <translation>Otrzymano wiadomość z konferencji</translation>
    </message>
    <message>
        <source>Conference message received</source>
        <comment>notification event description</comment>
        <translation>Otrzymano wiadomość z konferencji</translation>
    </message>
    <message>
        <source>Conference message received (Background)</source>
        <comment>notification event</comment>
        <translation>Otrzymano wiadomość z konferencji (w tle)</translation>
    </message>
    <message>
        <source>Conference message received (Background)</source>
        <comment>notification event description</comment>
        <translation>Otrzymano wiadomość z konferencji (w tle)</translation>
    </message>
    <message>
        <source>display information in chat window</source>
        <comment>action description</comment>
        <translation>pokaż informację w oknie rozmowy</translation>
    </message>
    <message>
        <source>Sticky</source>
        <comment>sticky notification, stays visible until user accepts it</comment>
        <translation>Przypięte</translation>
    </message>
    <message>
        <source>Display a Growl notification</source>
        <comment>growl - Mac OS X system wide notification method</comment>
        <translation>Wyświetl powiadomienie Growl</translation>
    </message>
    <message>
        <source>sound file</source>
        <comment>nc</comment>
        <translation>plik dźwiękowy</translation>
    </message>
    <message>
        <source>Mute</source>
        <comment>turn off all</comment>
        <translation>Wycisz</translation>
    </message>
    <message>
        <source>Notify always</source>
        <comment>turn on all</comment>
        <translation>Powiadamiaj zawsze</translation>
    </message>
    <message>
        <source>Notify from buddies only</source>
        <comment>turn on only from contacts at my list</comment>
        <translation>Powiadamiaj tylko o znajomych</translation>
    </message>
    <message>
        <source>play sound</source>
        <comment>nc</comment>
        <translation>odtwórz dźwięk</translation>
    </message>
    <message>
        <source>Bounce dock icon</source>
        <comment>nc</comment>
        <translation>Podskakująca ikona w Docku</translation>
    </message>
</context>
</TS>
