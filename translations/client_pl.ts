<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="pl_PL" sourcelanguage="en">
<context>
    <name>presence</name>
    <message>
        <source>available</source>
        <translation>dostępny</translation>
    </message>
    <message>
        <source>away</source>
        <translation>nieobecny</translation>
    </message>
    <message>
        <source>not available</source>
        <translation>niedostępny</translation>
    </message>
</context>
<context>
    <name>settings</name>
    <message>
        <source>Drop repeats for</source>
        <translation>Pomijaj powtórzenia przez</translation>
    </message>
    <message>
        <source>The same event with the same title is announced once in this time.</source>
        <translation>To samo zdarzenie z tym samym tytułem jest ogłaszane raz w tym czasie.</translation>
    </message>
    <message>
        <source> s</source>
        <translation> s</translation>
    </message>
    <message>
        <source>Alert sounds</source>
        <translation>Dźwięki alertów</translation>
    </message>
    <message>
        <source>Mute</source>
        <translation>Wycisz</translation>
    </message>
    <message>
        <source>Notify always</source>
        <translation>Powiadamiaj zawsze</translation>
    </message>
    <message>
        <source>Notify from buddies only</source>
        <translation>Powiadamiaj tylko o znajomych</translation>
    </message>
    <message>
        <source>Whose alerts make a sound.</source>
        <translation>Czyje alerty wydają dźwięk.</translation>
    </message>
    <message>
        <source>Pictures</source>
        <translation>Obrazki</translation>
    </message>
    <message>
        <source>Contact list pictures</source>
        <translation>Obrazki listy znajomych</translation>
    </message>
    <message>
        <source>Sounds</source>
        <translation>Dźwięki</translation>
    </message>
</context>
<context>
    <name>tray icon</name>
    <message>
        <source>Show</source>
        <translation>Pokaż</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Zakończ</translation>
    </message>
</context>
<context>
    <name>zepa</name>
    <message>
        <source>Command</source>
        <translation>Polecenie</translation>
    </message>
    <message>
        <source>run a command</source>
        <translation>uruchom polecenie</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Plik</translation>
    </message>
    <message>
        <source>A name without a folder is a file in ~/.local/state/zepa.</source>
        <translation>Nazwa bez folderu oznacza plik w ~/.local/state/zepa.</translation>
    </message>
    <message>
        <source>Largest size</source>
        <translation>Największy rozmiar</translation>
    </message>
    <message>
        <source>When it is reached, a new file begins.</source>
        <translation>Gdy zostanie osiągnięty, zaczyna się nowy plik.</translation>
    </message>
    <message>
        <source> KB</source>
        <translation> KB</translation>
    </message>
    <message>
        <source>Older files kept</source>
        <translation>Zachowywane starsze pliki</translation>
    </message>
    <message>
        <source>They have .1, .2 and so on behind their names.</source>
        <translation>Mają .1, .2 i tak dalej na końcu nazw.</translation>
    </message>
    <message>
        <source>write to a file</source>
        <translation>zapisz do pliku</translation>
    </message>
    <message>
        <source>Read out</source>
        <translation>Czytaj</translation>
    </message>
    <message>
        <source>Title and text</source>
        <translation>Tytuł i tekst</translation>
    </message>
    <message>
        <source>Title only</source>
        <translation>Tylko tytuł</translation>
    </message>
    <message>
        <source>Text only</source>
        <translation>Tylko tekst</translation>
    </message>
    <message>
        <source>Voice</source>
        <translation>Głos</translation>
    </message>
    <message>
        <source>A voice of espeak-ng, for example de or en-us. Empty: its own choice.</source>
        <translation>Głos programu espeak-ng, na przykład de lub en-us. Puste: jego własny wybór.</translation>
    </message>
    <message>
        <source>Speed</source>
        <translation>Prędkość</translation>
    </message>
    <message>
        <source> words a minute</source>
        <translation> słów na minutę</translation>
    </message>
    <message>
        <source>read out</source>
        <translation>przeczytaj</translation>
    </message>
    <message>
        <source>Pop-up</source>
        <translation>Dymek</translation>
    </message>
    <message>
        <source>Sound</source>
        <translation>Dźwięk</translation>
    </message>
    <message>
        <source>Line in the chat</source>
        <translation>Wiersz w rozmowie</translation>
    </message>
    <message>
        <source>Attention</source>
        <translation>Uwaga</translation>
    </message>
    <message>
        <source>The stored rules for these types were damaged, as a crash or a full disk leaves them, and are back as they were last: %1</source>
        <translation>Zapisane reguły dla tych rodzajów były uszkodzone, jak po awarii lub przy pełnym dysku, i są znów takie jak ostatnio: %1</translation>
    </message>
    <message>
        <source>The stored rules for these types were damaged, and there was no good copy. They have their defaults now; the damaged files are in %2. Types: %1</source>
        <translation>Zapisane reguły dla tych rodzajów były uszkodzone i nie było dobrej kopii. Mają teraz wartości domyślne; uszkodzone pliki są w %2. Rodzaje: %1</translation>
    </message>
    <message>
        <source>The stored rules for these types are damaged and cannot be mended; the files are in %2. Types: %1</source>
        <translation>Zapisane reguły dla tych rodzajów są uszkodzone i nie da się ich naprawić; pliki są w %2. Rodzaje: %1</translation>
    </message>
    <message>
        <source>The rules for %1 are stored, but there is no room for the copy that protects them; nothing more can be changed before there is.</source>
        <translation>Reguły dla %1 są zapisane, ale brak miejsca na chroniącą je kopię; do tego czasu nic więcej nie można zmienić.</translation>
    </message>
    <message>
        <source>The change to the rules for %1 could not be stored, perhaps because the disk is full. It holds until the program ends.</source>
        <translation>Zmiany reguł dla %1 nie udało się zapisać, być może z powodu pełnego dysku. Obowiązuje do końca programu.</translation>
    </message>
    <message>
        <source>The rules for %1 were not changed: the file cannot be written, or there is no room for the copy that protects it.</source>
        <translation>Reguł dla %1 nie zmieniono: nie można zapisać pliku albo brak miejsca na chroniącą go kopię.</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Czas</translation>
    </message>
    <message>
        <source>Event</source>
        <translation>Zdarzenie</translation>
    </message>
    <message>
        <source>Title</source>
        <translation>Tytuł</translation>
    </message>
    <message>
        <source>About</source>
        <translation>Osoba</translation>
    </message>
    <message>
        <source>Methods called</source>
        <translation>Wywołane metody</translation>
    </message>
    <message>
        <source>on</source>
        <translation>tak</translation>
    </message>
    <message>
        <source>off</source>
        <translation>nie</translation>
    </message>
    <message>
        <source>no rule</source>
        <translation>brak reguły</translation>
    </message>
    <message>
        <source>one rule</source>
        <translation>jedna reguła</translation>
    </message>
    <message>
        <source>%1 rules</source>
        <translation>reguły: %1</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>, </source>
        <translation>, </translation>
    </message>
    <message>
        <source>%1 (sample %2)</source>
        <translation>%1 (próbka %2)</translation>
    </message>
    <message>
        <source>Ann: Shall we have lunch at noon?</source>
        <translation>Anna: Zjemy obiad w południe?</translation>
    </message>
    <message>
        <source>Ann</source>
        <translation>Anna</translation>
    </message>
    <message>
        <source>No notification service is there to show the pop-up.</source>
        <translation>Brak usługi powiadomień, która pokazałaby dymek.</translation>
    </message>
    <message>
        <source>The notification service does not know this event yet.</source>
        <translation>Usługa powiadomień jeszcze nie zna tego zdarzenia.</translation>
    </message>
    <message>
        <source>The setting for alert sounds keeps it silent.</source>
        <translation>Ustawienie dźwięków alertów go wycisza.</translation>
    </message>
    <message>
        <source>The sound file is not there.</source>
        <translation>Pliku dźwiękowego nie ma.</translation>
    </message>
    <message>
        <source>No chat with Ann is open to write a line in.</source>
        <translation>Nie ma otwartej rozmowy z Anną, do której można wpisać wiersz.</translation>
    </message>
    <message>
        <source>Sample %1: there is no rule for “%2”, so nothing happens.</source>
        <translation>Próbka %1: nie ma reguły dla „%2”, więc nic się nie dzieje.</translation>
    </message>
    <message>
        <source>Sample %1 was dropped as a repeat.</source>
        <translation>Próbkę %1 pominięto jako powtórzenie.</translation>
    </message>
    <message>
        <source>Sample %1 went to: %2.</source>
        <translation>Próbka %1 trafiła do: %2.</translation>
    </message>
    <message>
        <source>%1 writes</source>
        <translation>%1 pisze</translation>
    </message>
    <message>
        <source>Lunch at noon?</source>
        <translation>Obiad w południe?</translation>
    </message>
    <message>
        <source>%1 writes in a background chat</source>
        <translation>%1 pisze w rozmowie w tle</translation>
    </message>
    <message>
        <source>Are you still there?</source>
        <translation>Jesteś tam jeszcze?</translation>
    </message>
    <message>
        <source>%1 writes first</source>
        <translation>%1 pisze pierwszą wiadomość</translation>
    </message>
    <message>
        <source>Good morning!</source>
        <translation>Dzień dobry!</translation>
    </message>
    <message>
        <source>You write to %1</source>
        <translation>Piszesz do: %1</translation>
    </message>
    <message>
        <source>On my way</source>
        <translation>Już idę</translation>
    </message>
    <message>
        <source>%1 sends an alert</source>
        <translation>%1 wysyła alert</translation>
    </message>
    <message>
        <source>You got an alert</source>
        <translation>Masz alert</translation>
    </message>
    <message>
        <source>You send %1 an alert</source>
        <translation>Wysyłasz alert do: %1</translation>
    </message>
    <message>
        <source>You sent an alert</source>
        <translation>Wysłano alert</translation>
    </message>
    <message>
        <source>E-mail waits</source>
        <translation>Czeka e-mail</translation>
    </message>
    <message>
        <source>New e-mail</source>
        <translation>Nowy e-mail</translation>
    </message>
    <message>
        <source>3 unread messages</source>
        <translation>Nieprzeczytane wiadomości: 3</translation>
    </message>
    <message>
        <source>The program has news</source>
        <translation>Program ma wiadomość</translation>
    </message>
    <message>
        <source>Information</source>
        <translation>Informacja</translation>
    </message>
    <message>
        <source>A file was saved</source>
        <translation>Zapisano plik</translation>
    </message>
    <message>
        <source>The program fails</source>
        <translation>Program zgłasza błąd</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Błąd</translation>
    </message>
    <message>
        <source>A file could not be saved</source>
        <translation>Nie udało się zapisać pliku</translation>
    </message>
    <message>
        <source>Your account logs in</source>
        <translation>Twoje konto loguje się</translation>
    </message>
    <message>
        <source>Logged in</source>
        <translation>Zalogowano</translation>
    </message>
    <message>
        <source>Your account is connected</source>
        <translation>Twoje konto jest połączone</translation>
    </message>
    <message>
        <source>%1 comes online</source>
        <translation>%1 łączy się</translation>
    </message>
    <message>
        <source>is available</source>
        <translation>jest dostępny</translation>
    </message>
    <message>
        <source>%1 goes away</source>
        <translation>%1 odchodzi</translation>
    </message>
    <message>
        <source>is away</source>
        <translation>odszedł</translation>
    </message>
    <message>
        <source>%1 goes offline</source>
        <translation>%1 rozłącza się</translation>
    </message>
    <message>
        <source>is not available</source>
        <translation>jest niedostępny</translation>
    </message>
    <message>
        <source>%1 changes status</source>
        <translation>%1 zmienia status</translation>
    </message>
    <message>
        <source>back in ten minutes</source>
        <translation>wracam za dziesięć minut</translation>
    </message>
    <message>
        <source>%1 starts typing</source>
        <translation>%1 zaczyna pisać</translation>
    </message>
    <message>
        <source>is typing</source>
        <translation>pisze</translation>
    </message>
    <message>
        <source>%1 stops typing</source>
        <translation>%1 przestaje pisać</translation>
    </message>
    <message>
        <source>stopped typing</source>
        <translation>przestał pisać</translation>
    </message>
    <message>
        <source>%1 writes in a conference</source>
        <translation>%1 pisze w konferencji</translation>
    </message>
    <message>
        <source>Hello everybody</source>
        <translation>Cześć wszystkim</translation>
    </message>
    <message>
        <source>%1 writes in a background conference</source>
        <translation>%1 pisze w konferencji w tle</translation>
    </message>
    <message>
        <source>Who takes the minutes?</source>
        <translation>Kto pisze protokół?</translation>
    </message>
    <message>
        <source>Verdict</source>
        <translation>Wynik</translation>
    </message>
    <message>
        <source>A program and its arguments. %t is the title, %m the message, %B the contact; the program also finds them in its environment, as ZEPA_TITLE, ZEPA_TEXT and ZEPA_BUDDY_NAME. Use quotes to group words. The command does not run in a shell.</source>
        <translation>Program i jego argumenty. %t to tytuł, %m wiadomość, %B kontakt; program znajdzie je także w swoim środowisku jako ZEPA_TITLE, ZEPA_TEXT i ZEPA_BUDDY_NAME. Cudzysłowy łączą słowa w grupy. Polecenie nie jest uruchamiane w powłoce.</translation>
    </message>
    <message>
        <source>&quot;$%1&quot; instead of %2</source>
        <translation>&quot;$%1&quot; zamiast %2</translation>
    </message>
    <message>
        <source>Unsafe: anyone who sends a message could make the shell run commands. Use environment variables in double quotes: %1.</source>
        <translation>Niebezpieczne: nadawca wiadomości mógłby sprawić, że powłoka uruchomi polecenia. Użyj zmiennych środowiskowych w cudzysłowach: %1.</translation>
    </message>
    <message>
        <source>The stored rules for these types are damaged and were left as they are, because %2 already holds %3 files. Move those files elsewhere and restart Zepa. Types: %1</source>
        <translation>Zapisane reguły dla tych rodzajów są uszkodzone i pozostawiono je bez zmian, ponieważ liczba plików w %2 to już %3. Przenieś te pliki w inne miejsce i uruchom program Zepa ponownie. Rodzaje: %1</translation>
    </message>
    <message>
        <source>These types have no rules, because their rule files in %2 cannot be read or are not regular files: %1</source>
        <translation>Te rodzaje nie mają reguł, ponieważ ich plików reguł w %2 nie można odczytać lub nie są to zwykłe pliki: %1</translation>
    </message>
    <message>
        <source>The rules for these types cannot be changed and are not backed up, because their files in %2 are larger than 4 MiB: %1</source>
        <translation>Reguł dla tych rodzajów nie można zmienić i nie mają kopii zapasowej, ponieważ ich pliki w %2 są większe niż 4 MiB: %1</translation>
    </message>
    <message>
        <source>The rules for %1 were not changed: another program is changing rules in the same folder. Try again.</source>
        <translation>Reguł dla %1 nie zmieniono: inny program zmienia reguły w tym samym folderze. Spróbuj ponownie.</translation>
    </message>
</context>
<context>
    <name>zepa::ChatHistory</name>
    <message>
        <source>Information:</source>
        <translation>Informacja:</translation>
    </message>
</context>
<context>
    <name>zepa::ChatWindow</name>
    <message>
        <source>&amp;Send</source>
        <translation>&amp;Wyślij</translation>
    </message>
    <message>
        <source>Write a message</source>
        <translation>Napisz wiadomość</translation>
    </message>
    <message>
        <source>Conversation with %1</source>
        <translation>Rozmowa: %1</translation>
    </message>
    <message>
        <source>Message to %1</source>
        <translation>Wiadomość do: %1</translation>
    </message>
    <message>
        <source>You</source>
        <translation>Ty</translation>
    </message>
</context>
<context>
    <name>zepa::ContactModel</name>
    <message>
        <source>stranger</source>
        <translation>nieznajomy</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <comment>name and presence</comment>
        <translation>%1 (%2)</translation>
    </message>
</context>
<context>
    <name>zepa::ContactPanel</name>
    <message>
        <source>Contacts</source>
        <translation>Znajomi</translation>
    </message>
    <message>
        <source>C&amp;ontacts</source>
        <translation>Zna&amp;jomi</translation>
    </message>
    <message>
        <source>Open the &amp;chat</source>
        <translation>Otwórz &amp;rozmowę</translation>
    </message>
</context>
<context>
    <name>zepa::FieldEdit</name>
    <message>
        <source>%1 %2</source>
        <comment>description, bounds</comment>
        <translation>%1 %2</translation>
    </message>
    <message>
        <source>From %1 to %2.</source>
        <translation>Od %1 do %2.</translation>
    </message>
</context>
<context>
    <name>zepa::JournalText</name>
    <message>
        <source>It was dropped as a repeat of a posting that the journal does not hold any more. Repeats are dropped for %1 s (setting &quot;duplicated_notifications_time&quot;).</source>
        <translation>Pominięto je jako powtórzenie zgłoszenia, którego dziennik już nie zawiera. Powtórzenia są pomijane przez %1 s (ustawienie &quot;duplicated_notifications_time&quot;).</translation>
    </message>
    <message>
        <source>It was dropped as a repeat: the same type and title was posted at %1. Times of day are compared without their dates, so it stays a repeat until that time has come again.</source>
        <translation>Pominięto je jako powtórzenie: ten sam rodzaj z tym samym tytułem zgłoszono o %1. Godziny są porównywane bez daty, więc pozostaje powtórzeniem, aż ta godzina nadejdzie znowu.</translation>
    </message>
    <message>
        <source>It was dropped as a repeat: the same type and title was posted %1 s ago, and repeats are dropped for %2 s (setting &quot;duplicated_notifications_time&quot;).</source>
        <translation>Pominięto je jako powtórzenie: ten sam rodzaj z tym samym tytułem zgłoszono %1 s temu, a powtórzenia są pomijane przez %2 s (ustawienie &quot;duplicated_notifications_time&quot;).</translation>
    </message>
    <message>
        <source>That was type %1 with title &quot;%2&quot;: type and title written in one count as the same.</source>
        <translation>Był to rodzaj %1 z tytułem &quot;%2&quot;: rodzaj i tytuł zapisane razem liczą się jako takie same.</translation>
    </message>
    <message>
        <source>No sound: no rule of this type calls the sound method.</source>
        <translation>Bez dźwięku: żadna reguła tego rodzaju nie wywołuje metody dźwięku.</translation>
    </message>
    <message>
        <source>No sound: the sender is not on the contact list (setting &quot;alerts&quot;: buddies_only).</source>
        <translation>Bez dźwięku: nadawcy nie ma na liście kontaktów (ustawienie &quot;alerts&quot;: buddies_only).</translation>
    </message>
    <message>
        <source>No sound: the rule&apos;s sound file is not there.</source>
        <translation>Bez dźwięku: pliku dźwiękowego z reguły nie ma.</translation>
    </message>
    <message>
        <source>The sound method was called, and its file handed to the sound player.</source>
        <translation>Wywołano metodę dźwięku, a jej plik przekazano do odtworzenia.</translation>
    </message>
    <message>
        <source>No line in a chat: no rule of this type calls the chat window method.</source>
        <translation>Bez wiersza w rozmowie: żadna reguła tego rodzaju nie wywołuje metody okna rozmowy.</translation>
    </message>
    <message>
        <source>No line in a chat: the posting is not about anybody.</source>
        <translation>Bez wiersza w rozmowie: zgłoszenie nie dotyczy nikogo.</translation>
    </message>
    <message>
        <source>No line in a chat: the chat window of %1 is not open.</source>
        <translation>Bez wiersza w rozmowie: okno rozmowy z %1 nie jest otwarte.</translation>
    </message>
    <message>
        <source>A line was written into the chat window of %1.</source>
        <translation>Wpisano wiersz do okna rozmowy z %1.</translation>
    </message>
    <message>
        <source>pop-up</source>
        <translation>dymek</translation>
    </message>
    <message>
        <source>pop-up waits</source>
        <translation>dymek czeka</translation>
    </message>
    <message>
        <source>clicked</source>
        <translation>kliknięty</translation>
    </message>
    <message>
        <source>timed out</source>
        <translation>wygasł</translation>
    </message>
    <message>
        <source>repeat</source>
        <translation>powtórzenie</translation>
    </message>
    <message>
        <source>no rule</source>
        <translation>brak reguły</translation>
    </message>
    <message>
        <source>no rule for a pop-up</source>
        <translation>brak reguły dla dymka</translation>
    </message>
    <message>
        <source>no session bus</source>
        <translation>brak magistrali sesji</translation>
    </message>
    <message>
        <source>no notification service</source>
        <translation>brak usługi powiadomień</translation>
    </message>
    <message>
        <source>not registered</source>
        <translation>niezarejestrowany</translation>
    </message>
    <message>
        <source>unknown type</source>
        <translation>nieznany rodzaj</translation>
    </message>
    <message>
        <source>A pop-up was handed to the notification service. It has no action, so nobody tells what became of it.</source>
        <translation>Dymek przekazano usłudze powiadomień. Nie ma on czynności, więc nikt nie powie, co się z nim stało.</translation>
    </message>
    <message>
        <source>A pop-up was handed to the notification service and waits for an answer.</source>
        <translation>Dymek przekazano usłudze powiadomień; czeka na odpowiedź.</translation>
    </message>
    <message>
        <source>It popped up and was clicked.</source>
        <translation>Dymek się pokazał i został kliknięty.</translation>
    </message>
    <message>
        <source>A pop-up was handed to the notification service and ended without a click: its time was over, it was closed, or the service gave it up.</source>
        <translation>Dymek przekazano usłudze powiadomień i skończył się bez kliknięcia: minął jego czas, został zamknięty albo usługa z niego zrezygnowała.</translation>
    </message>
    <message>
        <source>The type &quot;%1&quot; has no rule, so no method was called.</source>
        <translation>Rodzaj &quot;%1&quot; nie ma reguł, więc nie wywołano żadnej metody.</translation>
    </message>
    <message>
        <source>No rule of the type &quot;%1&quot; calls the pop-up method; called was: %2.</source>
        <translation>Żadna reguła rodzaju &quot;%1&quot; nie wywołuje metody dymków; wywołano: %2.</translation>
    </message>
    <message>
        <source>The pop-up method was called, but there is no session bus, so no notification service.</source>
        <translation>Wywołano metodę dymków, ale nie ma magistrali sesji, a więc i usługi powiadomień.</translation>
    </message>
    <message>
        <source>The pop-up method was called, but there is no notification service on the session bus.</source>
        <translation>Wywołano metodę dymków, ale na magistrali sesji nie ma usługi powiadomień.</translation>
    </message>
    <message>
        <source>The pop-up method was called, but the type &quot;%1&quot; is not registered with the notification service.</source>
        <translation>Wywołano metodę dymków, ale rodzaj &quot;%1&quot; nie jest zarejestrowany w usłudze powiadomień.</translation>
    </message>
    <message>
        <source>Nobody registered a notification type &quot;%1&quot;.</source>
        <translation>Nikt nie zarejestrował rodzaju powiadomień &quot;%1&quot;.</translation>
    </message>
    <message>
        <source>Why did this not pop up?</source>
        <translation>Dlaczego nie pokazał się dymek?</translation>
    </message>
    <message>
        <source>nobody</source>
        <translation>nikt</translation>
    </message>
    <message>
        <source>%1 (not on the contact list)</source>
        <translation>%1 (spoza listy kontaktów)</translation>
    </message>
    <message>
        <source>Posted: %1</source>
        <translation>Zgłoszono: %1</translation>
    </message>
    <message>
        <source>Type: %1 (%2)</source>
        <translation>Rodzaj: %1 (%2)</translation>
    </message>
    <message>
        <source>Title: %1</source>
        <translation>Tytuł: %1</translation>
    </message>
    <message>
        <source>Text: %1</source>
        <translation>Tekst: %1</translation>
    </message>
    <message>
        <source>About: %1</source>
        <translation>Dotyczy: %1</translation>
    </message>
    <message>
        <source>Methods in the order of their calls (the newest rule comes first):</source>
        <translation>Metody w kolejności wywołań (najpierw najnowsza reguła):</translation>
    </message>
    <message>
        <source>No sound: alert sounds are turned off (setting &quot;alerts&quot;: %1).</source>
        <translation>Bez dźwięku: dźwięki alertów są wyłączone (ustawienie &quot;alerts&quot;: %1).</translation>
    </message>
</context>
<context>
    <name>zepa::JournalView</name>
    <message>
        <source>Why did this not pop up?</source>
        <translation>Dlaczego nie pokazał się dymek?</translation>
    </message>
    <message>
        <source>The journal says here for each posting why it did not pop up.</source>
        <translation>Dziennik mówi tu o każdym zgłoszeniu, dlaczego nie pokazało się w dymku.</translation>
    </message>
    <message>
        <source>Type, title, text, person</source>
        <translation>Rodzaj, tytuł, tekst, osoba</translation>
    </message>
    <message>
        <source>&amp;Filter:</source>
        <translation>&amp;Filtr:</translation>
    </message>
    <message>
        <source>All verdicts</source>
        <translation>Wszystkie wyniki</translation>
    </message>
    <message>
        <source>Cop&amp;y</source>
        <translation>Ko&amp;piuj</translation>
    </message>
    <message>
        <source>Puts the chosen lines onto the clipboard</source>
        <translation>Umieszcza wybrane wiersze w schowku</translation>
    </message>
    <message>
        <source>Journal</source>
        <translation>Dziennik</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <comment>event and verdict</comment>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>Verdict that is shown</source>
        <translation>Pokazywany wynik</translation>
    </message>
</context>
<context>
    <name>zepa::MainWindow</name>
    <message>
        <source>&amp;Zepa</source>
        <translation>&amp;Zepa</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>Za&amp;kończ</translation>
    </message>
    <message>
        <source>&amp;Notification settings...</source>
        <translation>&amp;Ustawienia powiadomień...</translation>
    </message>
    <message>
        <source>&amp;Contact</source>
        <translation>&amp;Kontakt</translation>
    </message>
    <message>
        <source>&amp;Journal</source>
        <translation>&amp;Dziennik</translation>
    </message>
    <message>
        <source>&amp;Copy the chosen lines</source>
        <translation>&amp;Kopiuj wybrane wiersze</translation>
    </message>
    <message>
        <source>Copy &amp;all lines</source>
        <translation>Kopiuj w&amp;szystkie wiersze</translation>
    </message>
    <message>
        <source>C&amp;lear</source>
        <translation>&amp;Wyczyść</translation>
    </message>
    <message>
        <source>Another program is changing rules in %1. Events will be announced as soon as it has finished.</source>
        <translation>Inny program zmienia reguły w %1. Zdarzenia będą zgłaszane, gdy tylko skończy.</translation>
    </message>
    <message>
        <source>Zepa cannot write to %1: your rules are in use as they are, and changes will not be saved.</source>
        <translation>Zepa nie może zapisywać w %1: obowiązują Twoje obecne reguły, a zmiany nie zostaną zapisane.</translation>
    </message>
    <message>
        <source>Zepa cannot write to %1: the default rules are in use, and changes will not be saved.</source>
        <translation>Zepa nie może zapisywać w %1: obowiązują reguły domyślne, a zmiany nie zostaną zapisane.</translation>
    </message>
    <message>
        <source>The settings file %1 cannot be read, so all settings have their defaults.</source>
        <translation>Nie można odczytać pliku ustawień %1, więc wszystkie ustawienia mają wartości domyślne.</translation>
    </message>
</context>
<context>
    <name>zepa::NoticeBar</name>
    <message>
        <source>&amp;Understood</source>
        <translation>&amp;Rozumiem</translation>
    </message>
</context>
<context>
    <name>zepa::NotificationSettings</name>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Cofnij</translation>
    </message>
    <message>
        <source>Red&amp;o</source>
        <translation>P&amp;onów</translation>
    </message>
    <message>
        <source>Space adds or removes a rule. Changes are stored at once.</source>
        <translation>Spacja dodaje lub usuwa regułę. Zmiany są zapisywane od razu.</translation>
    </message>
    <message>
        <source>Events and methods</source>
        <translation>Zdarzenia i metody</translation>
    </message>
    <message>
        <source>A check mark stands where an event uses a method. Space toggles it.</source>
        <translation>Znacznik stoi tam, gdzie zdarzenie używa metody. Spacja go przełącza.</translation>
    </message>
    <message>
        <source>For all events</source>
        <translation>Dla wszystkich zdarzeń</translation>
    </message>
    <message>
        <source>Nothing to undo.</source>
        <translation>Nie ma czego cofnąć.</translation>
    </message>
    <message>
        <source>Last change: %1</source>
        <translation>Ostatnia zmiana: %1</translation>
    </message>
</context>
<context>
    <name>zepa::ProblemBar</name>
    <message>
        <source>&amp;Try again</source>
        <translation>&amp;Spróbuj ponownie</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Ostrzeżenie</translation>
    </message>
</context>
<context>
    <name>zepa::RuleEditor</name>
    <message>
        <source>Add: %1</source>
        <translation>Dodaj: %1</translation>
    </message>
    <message>
        <source>Remove: %1</source>
        <translation>Usuń: %1</translation>
    </message>
    <message>
        <source>Change: %1, %2</source>
        <translation>Zmień: %1, %2</translation>
    </message>
    <message>
        <source>Restore defaults: %1</source>
        <translation>Przywróć domyślne: %1</translation>
    </message>
    <message>
        <source>Change: %1</source>
        <translation>Zmień: %1</translation>
    </message>
    <message>
        <source>Undone: %1</source>
        <translation>Cofnięto: %1</translation>
    </message>
    <message>
        <source>All rules are stored now.</source>
        <translation>Wszystkie reguły są już zapisane.</translation>
    </message>
    <message>
        <source>%1, %2</source>
        <translation>%1, %2</translation>
    </message>
    <message>
        <source>Redone: %1</source>
        <translation>Ponowiono: %1</translation>
    </message>
    <message>
        <source>Rules or settings were changed outside this window.</source>
        <translation>Reguły lub ustawienia zmieniono poza tym oknem.</translation>
    </message>
</context>
<context>
    <name>zepa::RulePane</name>
    <message>
        <source>Ru&amp;le:</source>
        <translation>&amp;Reguła:</translation>
    </message>
    <message>
        <source>&amp;Add a rule</source>
        <translation>&amp;Dodaj regułę</translation>
    </message>
    <message>
        <source>Re&amp;move this rule</source>
        <translation>&amp;Usuń tę regułę</translation>
    </message>
    <message>
        <source>Post a &amp;sample</source>
        <translation>Wyślij &amp;próbkę</translation>
    </message>
    <message>
        <source>Restore &amp;defaults</source>
        <translation>Przy&amp;wróć domyślne</translation>
    </message>
    <message>
        <source>No event is chosen</source>
        <translation>Nie wybrano zdarzenia</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <comment>event, method</comment>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>1 (newest)</source>
        <translation>1 (najnowsza)</translation>
    </message>
    <message>
        <source>&amp;Add another rule</source>
        <translation>&amp;Dodaj kolejną regułę</translation>
    </message>
    <message>
        <source>Choose an event in the table.</source>
        <translation>Wybierz zdarzenie w tabeli.</translation>
    </message>
    <message>
        <source>Choose the column of a method to see its rule.</source>
        <translation>Wybierz kolumnę metody, aby zobaczyć jej regułę.</translation>
    </message>
    <message>
        <source>There is no rule, so this event does not use this method.</source>
        <translation>Nie ma reguły, więc to zdarzenie nie używa tej metody.</translation>
    </message>
    <message>
        <source>This method has no settings.</source>
        <translation>Ta metoda nie ma ustawień.</translation>
    </message>
    <message>
        <source>All %1 rules act, the newest first. Space in the table and the command line reach the newest one. The next start of the program turns their order round.</source>
        <translation>Działają wszystkie reguły (%1), najpierw najnowsza. Spacja w tabeli i wiersz poleceń dotyczą najnowszej. Następne uruchomienie programu odwraca ich kolejność.</translation>
    </message>
    <message>
        <source>Triggers a test event so you can see and hear the result.</source>
        <translation>Wywołuje zdarzenie testowe, aby zobaczyć i usłyszeć wynik.</translation>
    </message>
    <message>
        <source>Resets all notifications for this event to the defaults.</source>
        <translation>Przywraca wartości domyślne wszystkich powiadomień dla tego zdarzenia.</translation>
    </message>
</context>
<context>
    <name>zepa::RuleTableModel</name>
    <message>
        <source>%1: %2</source>
        <comment>event, description</comment>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>%1, %2: %3</source>
        <comment>event, method, count of rules</comment>
        <translation>%1, %2: %3</translation>
    </message>
    <message>
        <source>Space adds a rule.</source>
        <translation>Spacja dodaje regułę.</translation>
    </message>
    <message>
        <source>Space removes the newest rule.</source>
        <translation>Spacja usuwa najnowszą regułę.</translation>
    </message>
    <message>
        <source>Meaning</source>
        <translation>Znaczenie</translation>
    </message>
    <message>
        <source>%1
Identifier: %2</source>
        <translation>%1
Identyfikator: %2</translation>
    </message>
    <message>
        <source>%1
Add-on method. Identifier: %2</source>
        <translation>%1
Metoda dodatkowa. Identyfikator: %2</translation>
    </message>
</context>
<context>
    <name>zepa::SettingsDialog</name>
    <message>
        <source>Notification settings</source>
        <translation>Ustawienia powiadomień</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>&amp;Zamknij</translation>
    </message>
</context>
<context>
    <name>zepa::Simulator</name>
    <message>
        <source>Simulator</source>
        <translation>Symulator</translation>
    </message>
    <message>
        <source>With an &amp;action for a click</source>
        <translation>Z &amp;czynnością po kliknięciu</translation>
    </message>
    <message>
        <source>A sample text</source>
        <translation>Przykładowy tekst</translation>
    </message>
    <message>
        <source>A click on the pop-up opens the chat. Only a pop-up with an action tells whether it was clicked; only one without can be sticky.</source>
        <translation>Kliknięcie dymka otwiera rozmowę. Tylko dymek z czynnością mówi, czy go kliknięto; tylko dymek bez niej może być przypięty.</translation>
    </message>
    <message>
        <source>&amp;Post</source>
        <translation>&amp;Wyślij</translation>
    </message>
    <message>
        <source>&amp;Event:</source>
        <translation>Zdarz&amp;enie:</translation>
    </message>
    <message>
        <source>&amp;Text:</source>
        <translation>&amp;Tekst:</translation>
    </message>
    <message>
        <source>Event to simulate</source>
        <translation>Zdarzenie do symulacji</translation>
    </message>
</context>
<context>
    <name>zepa::SoundEdit</name>
    <message>
        <source>&amp;Play</source>
        <translation>Od&amp;twórz</translation>
    </message>
    <message>
        <source>Play the sound</source>
        <translation>Odtwórz dźwięk</translation>
    </message>
    <message>
        <source>C&amp;hoose...</source>
        <translation>Wy&amp;bierz...</translation>
    </message>
    <message>
        <source>Choose a sound file</source>
        <translation>Wybierz plik dźwiękowy</translation>
    </message>
    <message>
        <source>Choose a sound</source>
        <translation>Wybierz dźwięk</translation>
    </message>
    <message>
        <source>Sounds (%1)</source>
        <translation>Dźwięki (%1)</translation>
    </message>
    <message>
        <source>%1 cannot be played, so it was not taken.</source>
        <translation>%1 nie da się odtworzyć, więc go nie przyjęto.</translation>
    </message>
    <message>
        <source>This file cannot be played.</source>
        <translation>Tego pliku nie da się odtworzyć.</translation>
    </message>
</context>
<context>
    <name>zepa::StorageStatus</name>
    <message>
        <source>The rules of “%1” were not changed: the file %2 cannot be written, or there is no room on the disk for the copy that protects it.</source>
        <translation>Reguł „%1” nie zmieniono: nie można zapisać pliku %2 albo na dysku brak miejsca na chroniącą go kopię.</translation>
    </message>
    <message>
        <source>The rules of “%1” are stored, but there is no room on the disk for the copy that protects them. Make room before you change more.</source>
        <translation>Reguły „%1” są zapisane, ale na dysku brak miejsca na chroniącą je kopię. Zwolnij miejsce przed dalszymi zmianami.</translation>
    </message>
    <message>
        <source>The setting “%1” cannot be written, so it was not changed. The file is %2.</source>
        <translation>Nie można zapisać ustawienia „%1”, więc go nie zmieniono. Plik: %2.</translation>
    </message>
    <message>
        <source>These events have rules that could not be written to %2, perhaps because the disk is full. They are in use until the client ends: %1.</source>
        <translation>Te zdarzenia mają reguły, których nie udało się zapisać w %2, być może z powodu pełnego dysku. Obowiązują do końca programu: %1.</translation>
    </message>
    <message>
        <source>, </source>
        <translation>, </translation>
    </message>
    <message>
        <source>The rules were not changed: another program is changing rules in %1. Try again when it has finished.</source>
        <translation>Reguł nie zmieniono: inny program zmienia reguły w %1. Spróbuj ponownie, gdy skończy.</translation>
    </message>
    <message>
        <source>The setting was not changed: another program is changing %1. Try again when it has finished.</source>
        <translation>Ustawienia nie zmieniono: inny program zmienia %1. Spróbuj ponownie, gdy skończy.</translation>
    </message>
</context>
</TS>
