<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE" sourcelanguage="en">
<context>
    <name>presence</name>
    <message>
        <source>available</source>
        <translation>verfügbar</translation>
    </message>
    <message>
        <source>away</source>
        <translation>abwesend</translation>
    </message>
    <message>
        <source>not available</source>
        <translation>nicht verfügbar</translation>
    </message>
</context>
<context>
    <name>settings</name>
    <message>
        <source>Drop repeats for</source>
        <translation>Wiederholungen weglassen für</translation>
    </message>
    <message>
        <source>The same event with the same title is announced once in this time.</source>
        <translation>Dasselbe Ereignis mit demselben Titel wird in dieser Zeit einmal gemeldet.</translation>
    </message>
    <message>
        <source> s</source>
        <translation> s</translation>
    </message>
    <message>
        <source>Alert sounds</source>
        <translation>Klänge für Weckrufe</translation>
    </message>
    <message>
        <source>Mute</source>
        <translation>Stumm</translation>
    </message>
    <message>
        <source>Notify always</source>
        <translation>Immer melden</translation>
    </message>
    <message>
        <source>Notify from buddies only</source>
        <translation>Nur bei Kontakten melden</translation>
    </message>
    <message>
        <source>Whose alerts make a sound.</source>
        <translation>Wessen Weckrufe klingen.</translation>
    </message>
    <message>
        <source>Pictures</source>
        <translation>Bilder</translation>
    </message>
    <message>
        <source>Contact list pictures</source>
        <translation>Bilder der Kontaktliste</translation>
    </message>
    <message>
        <source>Sounds</source>
        <translation>Klänge</translation>
    </message>
</context>
<context>
    <name>tray icon</name>
    <message>
        <source>Show</source>
        <translation>Zeigen</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Beenden</translation>
    </message>
</context>
<context>
    <name>zepa</name>
    <message>
        <source>Command</source>
        <translation>Befehl</translation>
    </message>
    <message>
        <source>run a command</source>
        <translation>Befehl ausführen</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>A name without a folder is a file in ~/.local/state/zepa.</source>
        <translation>Ein Name ohne Ordner ist eine Datei in ~/.local/state/zepa.</translation>
    </message>
    <message>
        <source>Largest size</source>
        <translation>Höchstgröße</translation>
    </message>
    <message>
        <source>When it is reached, a new file begins.</source>
        <translation>Wenn sie erreicht ist, beginnt eine neue Datei.</translation>
    </message>
    <message>
        <source> KB</source>
        <translation> KB</translation>
    </message>
    <message>
        <source>Older files kept</source>
        <translation>Ältere Dateien behalten</translation>
    </message>
    <message>
        <source>They have .1, .2 and so on behind their names.</source>
        <translation>Sie haben .1, .2 und so weiter hinter ihren Namen.</translation>
    </message>
    <message>
        <source>write to a file</source>
        <translation>in eine Datei schreiben</translation>
    </message>
    <message>
        <source>Read out</source>
        <translation>Vorlesen</translation>
    </message>
    <message>
        <source>Title and text</source>
        <translation>Titel und Text</translation>
    </message>
    <message>
        <source>Title only</source>
        <translation>Nur Titel</translation>
    </message>
    <message>
        <source>Text only</source>
        <translation>Nur Text</translation>
    </message>
    <message>
        <source>Voice</source>
        <translation>Stimme</translation>
    </message>
    <message>
        <source>A voice of espeak-ng, for example de or en-us. Empty: its own choice.</source>
        <translation>Eine Stimme von espeak-ng, zum Beispiel de oder en-us. Leer: seine eigene Wahl.</translation>
    </message>
    <message>
        <source>Speed</source>
        <translation>Geschwindigkeit</translation>
    </message>
    <message>
        <source> words a minute</source>
        <translation> Wörter in der Minute</translation>
    </message>
    <message>
        <source>read out</source>
        <translation>vorlesen</translation>
    </message>
    <message>
        <source>Pop-up</source>
        <translation>Einblendung</translation>
    </message>
    <message>
        <source>Sound</source>
        <translation>Klang</translation>
    </message>
    <message>
        <source>Line in the chat</source>
        <translation>Zeile im Chat</translation>
    </message>
    <message>
        <source>Attention</source>
        <translation>Aufmerksamkeit</translation>
    </message>
    <message>
        <source>The stored rules for these types were damaged, as a crash or a full disk leaves them, and are back as they were last: %1</source>
        <translation>Die gespeicherten Regeln für diese Arten waren beschädigt, wie ein Absturz oder ein voller Datenträger sie hinterlässt, und sind wieder wie zuletzt: %1</translation>
    </message>
    <message>
        <source>The stored rules for these types were damaged, and there was no good copy. They have their defaults now; the damaged files are in %2. Types: %1</source>
        <translation>Die gespeicherten Regeln für diese Arten waren beschädigt, und es gab keine gute Kopie. Sie haben jetzt ihre Voreinstellungen; die beschädigten Dateien sind in %2. Arten: %1</translation>
    </message>
    <message>
        <source>The stored rules for these types are damaged and cannot be mended; the files are in %2. Types: %1</source>
        <translation>Die gespeicherten Regeln für diese Arten sind beschädigt und lassen sich nicht reparieren; die Dateien sind in %2. Arten: %1</translation>
    </message>
    <message>
        <source>The rules for %1 are stored, but there is no room for the copy that protects them; nothing more can be changed before there is.</source>
        <translation>Die Regeln für %1 sind gespeichert, aber für die Kopie, die sie schützt, ist kein Platz; vorher kann nichts mehr geändert werden.</translation>
    </message>
    <message>
        <source>The change to the rules for %1 could not be stored, perhaps because the disk is full. It holds until the program ends.</source>
        <translation>Die Änderung der Regeln für %1 konnte nicht gespeichert werden, vielleicht weil der Datenträger voll ist. Sie gilt, bis das Programm endet.</translation>
    </message>
    <message>
        <source>The rules for %1 were not changed: the file cannot be written, or there is no room for the copy that protects it.</source>
        <translation>Die Regeln für %1 wurden nicht geändert: Die Datei kann nicht geschrieben werden, oder für die Kopie, die sie schützt, ist kein Platz.</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Zeit</translation>
    </message>
    <message>
        <source>Event</source>
        <translation>Ereignis</translation>
    </message>
    <message>
        <source>Title</source>
        <translation>Titel</translation>
    </message>
    <message>
        <source>About</source>
        <translation>Person</translation>
    </message>
    <message>
        <source>Methods called</source>
        <translation>Aufgerufene Methoden</translation>
    </message>
    <message>
        <source>on</source>
        <translation>an</translation>
    </message>
    <message>
        <source>off</source>
        <translation>aus</translation>
    </message>
    <message>
        <source>no rule</source>
        <translation>keine Regel</translation>
    </message>
    <message>
        <source>one rule</source>
        <translation>eine Regel</translation>
    </message>
    <message>
        <source>%1 rules</source>
        <translation>%1 Regeln</translation>
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
        <translation>%1 (Probe %2)</translation>
    </message>
    <message>
        <source>Ann: Shall we have lunch at noon?</source>
        <translation>Anna: Essen wir um zwölf zu Mittag?</translation>
    </message>
    <message>
        <source>Ann</source>
        <translation>Anna</translation>
    </message>
    <message>
        <source>No notification service is there to show the pop-up.</source>
        <translation>Es ist kein Benachrichtigungsdienst da, der die Einblendung zeigen könnte.</translation>
    </message>
    <message>
        <source>The notification service does not know this event yet.</source>
        <translation>Der Benachrichtigungsdienst kennt dieses Ereignis noch nicht.</translation>
    </message>
    <message>
        <source>The setting for alert sounds keeps it silent.</source>
        <translation>Die Einstellung für Klänge der Weckrufe lässt es stumm.</translation>
    </message>
    <message>
        <source>The sound file is not there.</source>
        <translation>Die Klangdatei ist nicht da.</translation>
    </message>
    <message>
        <source>No chat with Ann is open to write a line in.</source>
        <translation>Es ist kein Chat mit Anna offen, in den eine Zeile geschrieben werden könnte.</translation>
    </message>
    <message>
        <source>Sample %1: there is no rule for “%2”, so nothing happens.</source>
        <translation>Probe %1: Es gibt keine Regel für „%2“, deshalb geschieht nichts.</translation>
    </message>
    <message>
        <source>Sample %1 was dropped as a repeat.</source>
        <translation>Probe %1 wurde als Wiederholung weggelassen.</translation>
    </message>
    <message>
        <source>Sample %1 went to: %2.</source>
        <translation>Probe %1 ging an: %2.</translation>
    </message>
    <message>
        <source>%1 writes</source>
        <translation>%1 schreibt</translation>
    </message>
    <message>
        <source>Lunch at noon?</source>
        <translation>Mittagessen um zwölf?</translation>
    </message>
    <message>
        <source>%1 writes in a background chat</source>
        <translation>%1 schreibt in einem Chat im Hintergrund</translation>
    </message>
    <message>
        <source>Are you still there?</source>
        <translation>Bist du noch da?</translation>
    </message>
    <message>
        <source>%1 writes first</source>
        <translation>%1 schreibt zuerst</translation>
    </message>
    <message>
        <source>Good morning!</source>
        <translation>Guten Morgen!</translation>
    </message>
    <message>
        <source>You write to %1</source>
        <translation>Sie schreiben an %1</translation>
    </message>
    <message>
        <source>On my way</source>
        <translation>Bin unterwegs</translation>
    </message>
    <message>
        <source>%1 sends an alert</source>
        <translation>%1 sendet einen Weckruf</translation>
    </message>
    <message>
        <source>You got an alert</source>
        <translation>Sie haben einen Weckruf erhalten</translation>
    </message>
    <message>
        <source>You send %1 an alert</source>
        <translation>Sie senden %1 einen Weckruf</translation>
    </message>
    <message>
        <source>You sent an alert</source>
        <translation>Sie haben einen Weckruf gesendet</translation>
    </message>
    <message>
        <source>E-mail waits</source>
        <translation>E-Mail wartet</translation>
    </message>
    <message>
        <source>New e-mail</source>
        <translation>Neue E-Mail</translation>
    </message>
    <message>
        <source>3 unread messages</source>
        <translation>3 ungelesene Nachrichten</translation>
    </message>
    <message>
        <source>The program has news</source>
        <translation>Das Programm hat Neuigkeiten</translation>
    </message>
    <message>
        <source>Information</source>
        <translation>Information</translation>
    </message>
    <message>
        <source>A file was saved</source>
        <translation>Eine Datei wurde gespeichert</translation>
    </message>
    <message>
        <source>The program fails</source>
        <translation>Das Programm meldet einen Fehler</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>A file could not be saved</source>
        <translation>Eine Datei konnte nicht gespeichert werden</translation>
    </message>
    <message>
        <source>Your account logs in</source>
        <translation>Ihr Konto meldet sich an</translation>
    </message>
    <message>
        <source>Logged in</source>
        <translation>Angemeldet</translation>
    </message>
    <message>
        <source>Your account is connected</source>
        <translation>Ihr Konto ist verbunden</translation>
    </message>
    <message>
        <source>%1 comes online</source>
        <translation>%1 kommt online</translation>
    </message>
    <message>
        <source>is available</source>
        <translation>ist verfügbar</translation>
    </message>
    <message>
        <source>%1 goes away</source>
        <translation>%1 geht weg</translation>
    </message>
    <message>
        <source>is away</source>
        <translation>ist abwesend</translation>
    </message>
    <message>
        <source>%1 goes offline</source>
        <translation>%1 geht offline</translation>
    </message>
    <message>
        <source>is not available</source>
        <translation>ist nicht verfügbar</translation>
    </message>
    <message>
        <source>%1 changes status</source>
        <translation>%1 ändert den Status</translation>
    </message>
    <message>
        <source>back in ten minutes</source>
        <translation>in zehn Minuten zurück</translation>
    </message>
    <message>
        <source>%1 starts typing</source>
        <translation>%1 beginnt zu schreiben</translation>
    </message>
    <message>
        <source>is typing</source>
        <translation>schreibt</translation>
    </message>
    <message>
        <source>%1 stops typing</source>
        <translation>%1 hört auf zu schreiben</translation>
    </message>
    <message>
        <source>stopped typing</source>
        <translation>schreibt nicht mehr</translation>
    </message>
    <message>
        <source>%1 writes in a conference</source>
        <translation>%1 schreibt in einer Konferenz</translation>
    </message>
    <message>
        <source>Hello everybody</source>
        <translation>Hallo alle</translation>
    </message>
    <message>
        <source>%1 writes in a background conference</source>
        <translation>%1 schreibt in einer Konferenz im Hintergrund</translation>
    </message>
    <message>
        <source>Who takes the minutes?</source>
        <translation>Wer schreibt das Protokoll?</translation>
    </message>
    <message>
        <source>Verdict</source>
        <translation>Ergebnis</translation>
    </message>
    <message>
        <source>A program and its arguments. %t is the title, %m the message, %B the contact; the program also finds them in its environment, as ZEPA_TITLE, ZEPA_TEXT and ZEPA_BUDDY_NAME. Use quotes to group words. The command does not run in a shell.</source>
        <translation>Ein Programm und seine Argumente. %t ist der Titel, %m die Nachricht, %B der Kontakt; das Programm findet sie auch in seiner Umgebung, als ZEPA_TITLE, ZEPA_TEXT und ZEPA_BUDDY_NAME. Anführungszeichen fassen Wörter zusammen. Der Befehl läuft nicht in einer Shell.</translation>
    </message>
    <message>
        <source>&quot;$%1&quot; instead of %2</source>
        <translation>&quot;$%1&quot; statt %2</translation>
    </message>
    <message>
        <source>Unsafe: anyone who sends a message could make the shell run commands. Use environment variables in double quotes: %1.</source>
        <translation>Unsicher: Wer eine Nachricht schickt, könnte die Shell Befehle ausführen lassen. Verwenden Sie Umgebungsvariablen in doppelten Anführungszeichen: %1.</translation>
    </message>
    <message>
        <source>The stored rules for these types are damaged and were left as they are, because %2 already holds %3 files. Move those files elsewhere and restart Zepa. Types: %1</source>
        <translation>Die gespeicherten Regeln für diese Arten sind beschädigt und wurden so gelassen, weil %2 schon %3 Dateien enthält. Verschieben Sie diese Dateien und starten Sie Zepa neu. Arten: %1</translation>
    </message>
    <message>
        <source>These types have no rules, because their rule files in %2 cannot be read or are not regular files: %1</source>
        <translation>Diese Arten haben keine Regeln, weil ihre Regeldateien in %2 nicht gelesen werden können oder keine gewöhnlichen Dateien sind: %1</translation>
    </message>
    <message>
        <source>The rules for these types cannot be changed and are not backed up, because their files in %2 are larger than 4 MiB: %1</source>
        <translation>Die Regeln für diese Arten können nicht geändert werden und haben keine Sicherungskopie, weil ihre Dateien in %2 größer als 4 MiB sind: %1</translation>
    </message>
    <message>
        <source>The rules for %1 were not changed: another program is changing rules in the same folder. Try again.</source>
        <translation>Die Regeln für %1 wurden nicht geändert: Ein anderes Programm ändert gerade Regeln in demselben Ordner. Versuchen Sie es noch einmal.</translation>
    </message>
</context>
<context>
    <name>zepa::ChatHistory</name>
    <message>
        <source>Information:</source>
        <translation>Information:</translation>
    </message>
</context>
<context>
    <name>zepa::ChatWindow</name>
    <message>
        <source>&amp;Send</source>
        <translation>&amp;Senden</translation>
    </message>
    <message>
        <source>Write a message</source>
        <translation>Nachricht schreiben</translation>
    </message>
    <message>
        <source>Conversation with %1</source>
        <translation>Gespräch mit %1</translation>
    </message>
    <message>
        <source>Message to %1</source>
        <translation>Nachricht an %1</translation>
    </message>
    <message>
        <source>You</source>
        <translation>Sie</translation>
    </message>
</context>
<context>
    <name>zepa::ContactModel</name>
    <message>
        <source>stranger</source>
        <translation>unbekannt</translation>
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
        <translation>Kontakte</translation>
    </message>
    <message>
        <source>C&amp;ontacts</source>
        <translation>K&amp;ontakte</translation>
    </message>
    <message>
        <source>Open the &amp;chat</source>
        <translation>&amp;Chat öffnen</translation>
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
        <translation>Von %1 bis %2.</translation>
    </message>
</context>
<context>
    <name>zepa::JournalText</name>
    <message>
        <source>It was dropped as a repeat of a posting that the journal does not hold any more. Repeats are dropped for %1 s (setting &quot;duplicated_notifications_time&quot;).</source>
        <translation>Sie wurde als Wiederholung einer Meldung weggelassen, die das Protokoll nicht mehr enthält. Wiederholungen werden %1 s lang weggelassen (Einstellung &quot;duplicated_notifications_time&quot;).</translation>
    </message>
    <message>
        <source>It was dropped as a repeat: the same type and title was posted at %1. Times of day are compared without their dates, so it stays a repeat until that time has come again.</source>
        <translation>Sie wurde als Wiederholung weggelassen: Dieselbe Art mit demselben Titel wurde um %1 gemeldet. Uhrzeiten werden ohne ihr Datum verglichen, deshalb bleibt sie eine Wiederholung, bis diese Uhrzeit wiederkommt.</translation>
    </message>
    <message>
        <source>It was dropped as a repeat: the same type and title was posted %1 s ago, and repeats are dropped for %2 s (setting &quot;duplicated_notifications_time&quot;).</source>
        <translation>Sie wurde als Wiederholung weggelassen: Dieselbe Art mit demselben Titel wurde vor %1 s gemeldet, und Wiederholungen werden %2 s lang weggelassen (Einstellung &quot;duplicated_notifications_time&quot;).</translation>
    </message>
    <message>
        <source>That was type %1 with title &quot;%2&quot;: type and title written in one count as the same.</source>
        <translation>Das war die Art %1 mit dem Titel &quot;%2&quot;: Art und Titel hintereinander geschrieben gelten als dasselbe.</translation>
    </message>
    <message>
        <source>No sound: no rule of this type calls the sound method.</source>
        <translation>Kein Klang: Keine Regel dieser Art ruft die Klangmethode auf.</translation>
    </message>
    <message>
        <source>No sound: the sender is not on the contact list (setting &quot;alerts&quot;: buddies_only).</source>
        <translation>Kein Klang: Der Absender steht nicht auf der Kontaktliste (Einstellung &quot;alerts&quot;: buddies_only).</translation>
    </message>
    <message>
        <source>No sound: the rule&apos;s sound file is not there.</source>
        <translation>Kein Klang: Die Klangdatei der Regel ist nicht da.</translation>
    </message>
    <message>
        <source>The sound method was called, and its file handed to the sound player.</source>
        <translation>Die Klangmethode wurde aufgerufen und ihre Datei zum Abspielen übergeben.</translation>
    </message>
    <message>
        <source>No line in a chat: no rule of this type calls the chat window method.</source>
        <translation>Keine Zeile in einem Chat: Keine Regel dieser Art ruft die Methode für Chatfenster auf.</translation>
    </message>
    <message>
        <source>No line in a chat: the posting is not about anybody.</source>
        <translation>Keine Zeile in einem Chat: Die Meldung betrifft niemanden.</translation>
    </message>
    <message>
        <source>No line in a chat: the chat window of %1 is not open.</source>
        <translation>Keine Zeile in einem Chat: Das Chatfenster von %1 ist nicht offen.</translation>
    </message>
    <message>
        <source>A line was written into the chat window of %1.</source>
        <translation>Eine Zeile wurde in das Chatfenster von %1 geschrieben.</translation>
    </message>
    <message>
        <source>pop-up</source>
        <translation>Einblendung</translation>
    </message>
    <message>
        <source>pop-up waits</source>
        <translation>Einblendung wartet</translation>
    </message>
    <message>
        <source>clicked</source>
        <translation>angeklickt</translation>
    </message>
    <message>
        <source>timed out</source>
        <translation>abgelaufen</translation>
    </message>
    <message>
        <source>repeat</source>
        <translation>Wiederholung</translation>
    </message>
    <message>
        <source>no rule</source>
        <translation>keine Regel</translation>
    </message>
    <message>
        <source>no rule for a pop-up</source>
        <translation>keine Regel für Einblendung</translation>
    </message>
    <message>
        <source>no session bus</source>
        <translation>kein Sitzungsbus</translation>
    </message>
    <message>
        <source>no notification service</source>
        <translation>kein Benachrichtigungsdienst</translation>
    </message>
    <message>
        <source>not registered</source>
        <translation>nicht angemeldet</translation>
    </message>
    <message>
        <source>unknown type</source>
        <translation>unbekannte Art</translation>
    </message>
    <message>
        <source>A pop-up was handed to the notification service. It has no action, so nobody tells what became of it.</source>
        <translation>Eine Einblendung wurde dem Benachrichtigungsdienst übergeben. Sie hat keine Aktion, deshalb sagt niemand, was aus ihr wurde.</translation>
    </message>
    <message>
        <source>A pop-up was handed to the notification service and waits for an answer.</source>
        <translation>Eine Einblendung wurde dem Benachrichtigungsdienst übergeben und wartet auf eine Antwort.</translation>
    </message>
    <message>
        <source>It popped up and was clicked.</source>
        <translation>Sie wurde eingeblendet und angeklickt.</translation>
    </message>
    <message>
        <source>A pop-up was handed to the notification service and ended without a click: its time was over, it was closed, or the service gave it up.</source>
        <translation>Eine Einblendung wurde dem Benachrichtigungsdienst übergeben und endete ohne Klick: Ihre Zeit war um, sie wurde geschlossen, oder der Dienst gab sie auf.</translation>
    </message>
    <message>
        <source>The type &quot;%1&quot; has no rule, so no method was called.</source>
        <translation>Die Art &quot;%1&quot; hat keine Regel, deshalb wurde keine Methode aufgerufen.</translation>
    </message>
    <message>
        <source>No rule of the type &quot;%1&quot; calls the pop-up method; called was: %2.</source>
        <translation>Keine Regel der Art &quot;%1&quot; ruft die Methode für Einblendungen auf; aufgerufen wurde: %2.</translation>
    </message>
    <message>
        <source>The pop-up method was called, but there is no session bus, so no notification service.</source>
        <translation>Die Methode für Einblendungen wurde aufgerufen, aber es gibt keinen Sitzungsbus und deshalb keinen Benachrichtigungsdienst.</translation>
    </message>
    <message>
        <source>The pop-up method was called, but there is no notification service on the session bus.</source>
        <translation>Die Methode für Einblendungen wurde aufgerufen, aber am Sitzungsbus ist kein Benachrichtigungsdienst.</translation>
    </message>
    <message>
        <source>The pop-up method was called, but the type &quot;%1&quot; is not registered with the notification service.</source>
        <translation>Die Methode für Einblendungen wurde aufgerufen, aber die Art &quot;%1&quot; ist beim Benachrichtigungsdienst nicht angemeldet.</translation>
    </message>
    <message>
        <source>Nobody registered a notification type &quot;%1&quot;.</source>
        <translation>Niemand hat eine Meldungsart &quot;%1&quot; angemeldet.</translation>
    </message>
    <message>
        <source>Why did this not pop up?</source>
        <translation>Warum wurde das nicht eingeblendet?</translation>
    </message>
    <message>
        <source>nobody</source>
        <translation>niemand</translation>
    </message>
    <message>
        <source>%1 (not on the contact list)</source>
        <translation>%1 (nicht auf der Kontaktliste)</translation>
    </message>
    <message>
        <source>Posted: %1</source>
        <translation>Gemeldet: %1</translation>
    </message>
    <message>
        <source>Type: %1 (%2)</source>
        <translation>Art: %1 (%2)</translation>
    </message>
    <message>
        <source>Title: %1</source>
        <translation>Titel: %1</translation>
    </message>
    <message>
        <source>Text: %1</source>
        <translation>Text: %1</translation>
    </message>
    <message>
        <source>About: %1</source>
        <translation>Person: %1</translation>
    </message>
    <message>
        <source>Methods in the order of their calls (the newest rule comes first):</source>
        <translation>Methoden in der Reihenfolge ihrer Aufrufe (die neueste Regel zuerst):</translation>
    </message>
    <message>
        <source>No sound: alert sounds are turned off (setting &quot;alerts&quot;: %1).</source>
        <translation>Kein Klang: Klänge für Weckrufe sind ausgeschaltet (Einstellung &quot;alerts&quot;: %1).</translation>
    </message>
</context>
<context>
    <name>zepa::JournalView</name>
    <message>
        <source>Why did this not pop up?</source>
        <translation>Warum wurde das nicht eingeblendet?</translation>
    </message>
    <message>
        <source>The journal says here for each posting why it did not pop up.</source>
        <translation>Das Protokoll sagt hier für jede Meldung, warum sie nicht eingeblendet wurde.</translation>
    </message>
    <message>
        <source>Type, title, text, person</source>
        <translation>Art, Titel, Text, Person</translation>
    </message>
    <message>
        <source>&amp;Filter:</source>
        <translation>&amp;Filter:</translation>
    </message>
    <message>
        <source>All verdicts</source>
        <translation>Alle Ergebnisse</translation>
    </message>
    <message>
        <source>Cop&amp;y</source>
        <translation>Kop&amp;ieren</translation>
    </message>
    <message>
        <source>Puts the chosen lines onto the clipboard</source>
        <translation>Legt die gewählten Zeilen in die Zwischenablage</translation>
    </message>
    <message>
        <source>Journal</source>
        <translation>Protokoll</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <comment>event and verdict</comment>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>Verdict that is shown</source>
        <translation>Ergebnis, das gezeigt wird</translation>
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
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>&amp;Notification settings...</source>
        <translation>Be&amp;nachrichtigungseinstellungen …</translation>
    </message>
    <message>
        <source>&amp;Contact</source>
        <translation>&amp;Kontakt</translation>
    </message>
    <message>
        <source>&amp;Journal</source>
        <translation>&amp;Protokoll</translation>
    </message>
    <message>
        <source>&amp;Copy the chosen lines</source>
        <translation>Gewählte Zeilen &amp;kopieren</translation>
    </message>
    <message>
        <source>Copy &amp;all lines</source>
        <translation>&amp;Alle Zeilen kopieren</translation>
    </message>
    <message>
        <source>C&amp;lear</source>
        <translation>&amp;Leeren</translation>
    </message>
    <message>
        <source>Another program is changing rules in %1. Events will be announced as soon as it has finished.</source>
        <translation>Ein anderes Programm ändert gerade Regeln in %1. Ereignisse werden gemeldet, sobald es fertig ist.</translation>
    </message>
    <message>
        <source>Zepa cannot write to %1: your rules are in use as they are, and changes will not be saved.</source>
        <translation>Zepa kann nicht in %1 schreiben: Ihre Regeln gelten, wie sie sind, und Änderungen werden nicht gespeichert.</translation>
    </message>
    <message>
        <source>Zepa cannot write to %1: the default rules are in use, and changes will not be saved.</source>
        <translation>Zepa kann nicht in %1 schreiben: Es gelten die voreingestellten Regeln, und Änderungen werden nicht gespeichert.</translation>
    </message>
    <message>
        <source>The settings file %1 cannot be read, so all settings have their defaults.</source>
        <translation>Die Einstellungsdatei %1 kann nicht gelesen werden, deshalb haben alle Einstellungen ihre Voreinstellungen.</translation>
    </message>
</context>
<context>
    <name>zepa::NoticeBar</name>
    <message>
        <source>&amp;Understood</source>
        <translation>&amp;Verstanden</translation>
    </message>
</context>
<context>
    <name>zepa::NotificationSettings</name>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Rückgängig</translation>
    </message>
    <message>
        <source>Red&amp;o</source>
        <translation>&amp;Wiederholen</translation>
    </message>
    <message>
        <source>Space adds or removes a rule. Changes are stored at once.</source>
        <translation>Die Leertaste fügt eine Regel hinzu oder entfernt sie. Änderungen werden sofort gespeichert.</translation>
    </message>
    <message>
        <source>Events and methods</source>
        <translation>Ereignisse und Methoden</translation>
    </message>
    <message>
        <source>A check mark stands where an event uses a method. Space toggles it.</source>
        <translation>Ein Haken steht, wo ein Ereignis eine Methode benutzt. Die Leertaste schaltet um.</translation>
    </message>
    <message>
        <source>For all events</source>
        <translation>Für alle Ereignisse</translation>
    </message>
    <message>
        <source>Nothing to undo.</source>
        <translation>Nichts rückgängig zu machen.</translation>
    </message>
    <message>
        <source>Last change: %1</source>
        <translation>Letzte Änderung: %1</translation>
    </message>
</context>
<context>
    <name>zepa::ProblemBar</name>
    <message>
        <source>&amp;Try again</source>
        <translation>Noch einmal &amp;versuchen</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Warnung</translation>
    </message>
</context>
<context>
    <name>zepa::RuleEditor</name>
    <message>
        <source>Add: %1</source>
        <translation>Hinzufügen: %1</translation>
    </message>
    <message>
        <source>Remove: %1</source>
        <translation>Entfernen: %1</translation>
    </message>
    <message>
        <source>Change: %1, %2</source>
        <translation>Ändern: %1, %2</translation>
    </message>
    <message>
        <source>Restore defaults: %1</source>
        <translation>Voreinstellungen: %1</translation>
    </message>
    <message>
        <source>Change: %1</source>
        <translation>Ändern: %1</translation>
    </message>
    <message>
        <source>Undone: %1</source>
        <translation>Zurückgenommen: %1</translation>
    </message>
    <message>
        <source>All rules are stored now.</source>
        <translation>Alle Regeln sind jetzt gespeichert.</translation>
    </message>
    <message>
        <source>%1, %2</source>
        <translation>%1, %2</translation>
    </message>
    <message>
        <source>Redone: %1</source>
        <translation>Wiederholt: %1</translation>
    </message>
    <message>
        <source>Rules or settings were changed outside this window.</source>
        <translation>Regeln oder Einstellungen wurden außerhalb dieses Fensters geändert.</translation>
    </message>
</context>
<context>
    <name>zepa::RulePane</name>
    <message>
        <source>Ru&amp;le:</source>
        <translation>Re&amp;gel:</translation>
    </message>
    <message>
        <source>&amp;Add a rule</source>
        <translation>Regel hin&amp;zufügen</translation>
    </message>
    <message>
        <source>Re&amp;move this rule</source>
        <translation>Diese Regel ent&amp;fernen</translation>
    </message>
    <message>
        <source>Post a &amp;sample</source>
        <translation>&amp;Probe senden</translation>
    </message>
    <message>
        <source>Restore &amp;defaults</source>
        <translation>Vorei&amp;nstellungen</translation>
    </message>
    <message>
        <source>No event is chosen</source>
        <translation>Kein Ereignis gewählt</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <comment>event, method</comment>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>1 (newest)</source>
        <translation>1 (neueste)</translation>
    </message>
    <message>
        <source>&amp;Add another rule</source>
        <translation>Weitere Regel hin&amp;zufügen</translation>
    </message>
    <message>
        <source>Choose an event in the table.</source>
        <translation>Wählen Sie ein Ereignis in der Tabelle.</translation>
    </message>
    <message>
        <source>Choose the column of a method to see its rule.</source>
        <translation>Wählen Sie die Spalte einer Methode, um ihre Regel zu sehen.</translation>
    </message>
    <message>
        <source>There is no rule, so this event does not use this method.</source>
        <translation>Es gibt keine Regel, deshalb benutzt dieses Ereignis diese Methode nicht.</translation>
    </message>
    <message>
        <source>This method has no settings.</source>
        <translation>Diese Methode hat keine Einstellungen.</translation>
    </message>
    <message>
        <source>All %1 rules act, the newest first. Space in the table and the command line reach the newest one. The next start of the program turns their order round.</source>
        <translation>Alle %1 Regeln wirken, die neueste zuerst. Leertaste in der Tabelle und Befehlszeile erreichen die neueste. Der nächste Start des Programms kehrt ihre Reihenfolge um.</translation>
    </message>
    <message>
        <source>Triggers a test event so you can see and hear the result.</source>
        <translation>Löst ein Testereignis aus, damit Sie das Ergebnis sehen und hören.</translation>
    </message>
    <message>
        <source>Resets all notifications for this event to the defaults.</source>
        <translation>Setzt alle Benachrichtigungen für dieses Ereignis auf die Voreinstellungen zurück.</translation>
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
        <translation>Die Leertaste fügt eine Regel hinzu.</translation>
    </message>
    <message>
        <source>Space removes the newest rule.</source>
        <translation>Die Leertaste entfernt die neueste Regel.</translation>
    </message>
    <message>
        <source>Meaning</source>
        <translation>Bedeutung</translation>
    </message>
    <message>
        <source>%1
Identifier: %2</source>
        <translation>%1
Kennung: %2</translation>
    </message>
    <message>
        <source>%1
Add-on method. Identifier: %2</source>
        <translation>%1
Zusatzmethode. Kennung: %2</translation>
    </message>
</context>
<context>
    <name>zepa::SettingsDialog</name>
    <message>
        <source>Notification settings</source>
        <translation>Benachrichtigungseinstellungen</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>&amp;Schließen</translation>
    </message>
</context>
<context>
    <name>zepa::Simulator</name>
    <message>
        <source>Simulator</source>
        <translation>Simulator</translation>
    </message>
    <message>
        <source>With an &amp;action for a click</source>
        <translation>Mit &amp;Aktion für einen Klick</translation>
    </message>
    <message>
        <source>A sample text</source>
        <translation>Ein Beispieltext</translation>
    </message>
    <message>
        <source>A click on the pop-up opens the chat. Only a pop-up with an action tells whether it was clicked; only one without can be sticky.</source>
        <translation>Ein Klick auf die Einblendung öffnet den Chat. Nur eine Einblendung mit Aktion meldet, ob sie angeklickt wurde; nur eine ohne kann stehen bleiben.</translation>
    </message>
    <message>
        <source>&amp;Post</source>
        <translation>&amp;Melden</translation>
    </message>
    <message>
        <source>&amp;Event:</source>
        <translation>&amp;Ereignis:</translation>
    </message>
    <message>
        <source>&amp;Text:</source>
        <translation>&amp;Text:</translation>
    </message>
    <message>
        <source>Event to simulate</source>
        <translation>Ereignis, das simuliert wird</translation>
    </message>
</context>
<context>
    <name>zepa::SoundEdit</name>
    <message>
        <source>&amp;Play</source>
        <translation>Abspie&amp;len</translation>
    </message>
    <message>
        <source>Play the sound</source>
        <translation>Klang abspielen</translation>
    </message>
    <message>
        <source>C&amp;hoose...</source>
        <translation>Auswä&amp;hlen …</translation>
    </message>
    <message>
        <source>Choose a sound file</source>
        <translation>Klangdatei auswählen</translation>
    </message>
    <message>
        <source>Choose a sound</source>
        <translation>Klang auswählen</translation>
    </message>
    <message>
        <source>Sounds (%1)</source>
        <translation>Klänge (%1)</translation>
    </message>
    <message>
        <source>%1 cannot be played, so it was not taken.</source>
        <translation>%1 lässt sich nicht abspielen und wurde deshalb nicht übernommen.</translation>
    </message>
    <message>
        <source>This file cannot be played.</source>
        <translation>Diese Datei lässt sich nicht abspielen.</translation>
    </message>
</context>
<context>
    <name>zepa::StorageStatus</name>
    <message>
        <source>The rules of “%1” were not changed: the file %2 cannot be written, or there is no room on the disk for the copy that protects it.</source>
        <translation>Die Regeln von „%1“ wurden nicht geändert: Die Datei %2 kann nicht geschrieben werden, oder auf dem Datenträger ist kein Platz für die Kopie, die sie schützt.</translation>
    </message>
    <message>
        <source>The rules of “%1” are stored, but there is no room on the disk for the copy that protects them. Make room before you change more.</source>
        <translation>Die Regeln von „%1“ sind gespeichert, aber für die Kopie, die sie schützt, ist auf dem Datenträger kein Platz. Schaffen Sie Platz, bevor Sie mehr ändern.</translation>
    </message>
    <message>
        <source>The setting “%1” cannot be written, so it was not changed. The file is %2.</source>
        <translation>Die Einstellung „%1“ kann nicht geschrieben werden, deshalb wurde sie nicht geändert. Die Datei ist %2.</translation>
    </message>
    <message>
        <source>These events have rules that could not be written to %2, perhaps because the disk is full. They are in use until the client ends: %1.</source>
        <translation>Diese Ereignisse haben Regeln, die nicht nach %2 geschrieben werden konnten, vielleicht weil der Datenträger voll ist. Sie gelten, bis das Programm endet: %1.</translation>
    </message>
    <message>
        <source>, </source>
        <translation>, </translation>
    </message>
    <message>
        <source>The rules were not changed: another program is changing rules in %1. Try again when it has finished.</source>
        <translation>Die Regeln wurden nicht geändert: Ein anderes Programm ändert gerade Regeln in %1. Versuchen Sie es noch einmal, wenn es fertig ist.</translation>
    </message>
    <message>
        <source>The setting was not changed: another program is changing %1. Try again when it has finished.</source>
        <translation>Die Einstellung wurde nicht geändert: Ein anderes Programm ändert gerade %1. Versuchen Sie es noch einmal, wenn es fertig ist.</translation>
    </message>
</context>
</TS>
