<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE" sourcelanguage="en">
<context>
    <name>translation</name>
    <message>
        <source>Message received</source>
        <comment>notification event</comment>
        <translation>Nachricht erhalten</translation>
    </message>
    <message>
        <source>When you receive any message</source>
        <comment>notification event description</comment>
        <translation>Wenn Sie eine Nachricht erhalten</translation>
    </message>
    <message>
        <source>Message received (Background chat)</source>
        <comment>notification event</comment>
        <translation>Nachricht erhalten (Chat im Hintergrund)</translation>
    </message>
    <message>
        <source>When you receive a message in a background chat</source>
        <comment>notification event description</comment>
        <translation>Wenn Sie eine Nachricht in einem Chat im Hintergrund erhalten</translation>
    </message>
    <message>
        <source>Message received (Initial)</source>
        <comment>notification event</comment>
        <translation>Nachricht erhalten (erste)</translation>
    </message>
    <message>
        <source>When you receive an initial message</source>
        <comment>notification event description</comment>
        <translation>Wenn Sie die erste Nachricht eines Gesprächs erhalten</translation>
    </message>
    <message>
        <source>Message sent</source>
        <comment>notification event</comment>
        <translation>Nachricht gesendet</translation>
    </message>
    <message>
        <source>When you sent message</source>
        <comment>notification event description</comment>
        <translation>Wenn Sie eine Nachricht gesendet haben</translation>
    </message>
    <message>
        <source>Alert received</source>
        <comment>notification event</comment>
        <translation>Weckruf erhalten</translation>
    </message>
    <message>
        <source>Alert received</source>
        <comment>notification event description</comment>
        <translation>Weckruf erhalten</translation>
    </message>
    <message>
        <source>Alert sent</source>
        <comment>notification event</comment>
        <translation>Weckruf gesendet</translation>
    </message>
    <message>
        <source>Alert sent</source>
        <comment>notification event description</comment>
        <translation>Weckruf gesendet</translation>
    </message>
    <message>
        <source>New email</source>
        <comment>notification event</comment>
        <translation>Neue E-Mail</translation>
    </message>
    <message>
        <source>New email</source>
        <comment>notification event description</comment>
        <translation>Neue E-Mail</translation>
    </message>
    <message>
        <source>Information message</source>
        <comment>notification event</comment>
        <translation>Information</translation>
    </message>
    <message>
        <source>Program information</source>
        <comment>notification event description</comment>
        <translation>Information des Programms</translation>
    </message>
    <message>
        <source>Error message</source>
        <comment>notification event</comment>
        <translation>Fehlermeldung</translation>
    </message>
    <message>
        <source>Program error</source>
        <comment>notification event description</comment>
        <translation>Fehler des Programms</translation>
    </message>
    <message>
        <source>Account logged in</source>
        <comment>notification event</comment>
        <translation>Konto angemeldet</translation>
    </message>
    <message>
        <source>Account logged in</source>
        <comment>notification event description</comment>
        <translation>Konto angemeldet</translation>
    </message>
    <message>
        <source>Buddy went offline</source>
        <comment>notification event</comment>
        <translation>Kontakt ist offline</translation>
    </message>
    <message>
        <source>When buddy changes presence to unavailable</source>
        <comment>notification event description</comment>
        <translation>Wenn ein Kontakt nicht mehr erreichbar ist</translation>
    </message>
    <message>
        <source>Buddy connected</source>
        <comment>notification event</comment>
        <translation>Kontakt ist online</translation>
    </message>
    <message>
        <source>When buddy changes presence from unavailable</source>
        <comment>notification event description</comment>
        <translation>Wenn ein Kontakt wieder erreichbar ist</translation>
    </message>
    <message>
        <source>Buddy went away</source>
        <comment>notification event</comment>
        <translation>Kontakt ist abwesend</translation>
    </message>
    <message>
        <source>When buddy becomes away</source>
        <comment>notification event description</comment>
        <translation>Wenn ein Kontakt abwesend wird</translation>
    </message>
    <message>
        <source>Buddy changed status</source>
        <comment>notification event</comment>
        <translation>Kontakt hat den Status geändert</translation>
    </message>
    <message>
        <source>When buddy changes status</source>
        <comment>notification event description</comment>
        <translation>Wenn ein Kontakt seinen Status ändert</translation>
    </message>
    <message>
        <source>Typing started</source>
        <comment>notification event</comment>
        <translation>Beginnt zu schreiben</translation>
    </message>
    <message>
        <source>When buddy start typing</source>
        <comment>notification event description</comment>
        <translation>Wenn ein Kontakt zu schreiben beginnt</translation>
    </message>
    <message>
        <source>Typing stoped</source>
        <comment>notification event</comment>
        <translation>Schreibt nicht mehr</translation>
    </message>
    <message>
        <source>When buddy stop typing</source>
        <comment>notification event description</comment>
        <translation>Wenn ein Kontakt aufhört zu schreiben</translation>
    </message>
    <message>
        <source>Conference message received</source>
        <comment>notification event</comment>
        <translation>Konferenznachricht erhalten</translation>
    </message>
    <message>
        <source>Conference message received</source>
        <comment>notification event description</comment>
        <translation>Konferenznachricht erhalten</translation>
    </message>
    <message>
        <source>Conference message received (Background)</source>
        <comment>notification event</comment>
        <translation>Konferenznachricht erhalten (Hintergrund)</translation>
    </message>
    <message>
        <source>Conference message received (Background)</source>
        <comment>notification event description</comment>
        <translation>Konferenznachricht erhalten (Hintergrund)</translation>
    </message>
    <message>
        <source>display information in chat window</source>
        <comment>action description</comment>
        <translation>Information im Chatfenster anzeigen</translation>
    </message>
    <message>
        <source>Sticky</source>
        <comment>sticky notification, stays visible until user accepts it</comment>
        <translation>Bleibt stehen</translation>
    </message>
    <message>
        <source>Display a Growl notification</source>
        <comment>growl - Mac OS X system wide notification method</comment>
        <translation>Growl-Benachrichtigung anzeigen</translation>
    </message>
    <message>
        <source>sound file</source>
        <comment>nc</comment>
        <translation>Klangdatei</translation>
    </message>
    <message>
        <source>Mute</source>
        <comment>turn off all</comment>
        <translation>Stumm</translation>
    </message>
    <message>
        <source>Notify always</source>
        <comment>turn on all</comment>
        <translation>Immer melden</translation>
    </message>
    <message>
        <source>Notify from buddies only</source>
        <comment>turn on only from contacts at my list</comment>
        <translation>Nur bei Kontakten melden</translation>
    </message>
    <message>
        <source>play sound</source>
        <comment>nc</comment>
        <translation>Klang abspielen</translation>
    </message>
    <message>
        <source>Bounce dock icon</source>
        <comment>nc</comment>
        <translation>Symbol im Dock hüpfen lassen</translation>
    </message>
</context>
</TS>
