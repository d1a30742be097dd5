<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr_FR" sourcelanguage="en">
<context>
    <name>presence</name>
    <message>
        <source>available</source>
        <translation>disponible</translation>
    </message>
    <message>
        <source>away</source>
        <translation>absent</translation>
    </message>
    <message>
        <source>not available</source>
        <translation>indisponible</translation>
    </message>
</context>
<context>
    <name>settings</name>
    <message>
        <source>Drop repeats for</source>
        <translation>Ignorer les répétitions pendant</translation>
    </message>
    <message>
        <source>The same event with the same title is announced once in this time.</source>
        <translation>Le même événement avec le même titre n’est annoncé qu’une fois pendant ce temps.</translation>
    </message>
    <message>
        <source> s</source>
        <translation> s</translation>
    </message>
    <message>
        <source>Alert sounds</source>
        <translation>Sons des alertes</translation>
    </message>
    <message>
        <source>Mute</source>
        <translation>Muet</translation>
    </message>
    <message>
        <source>Notify always</source>
        <translation>Toujours prévenir</translation>
    </message>
    <message>
        <source>Notify from buddies only</source>
        <translation>Prévenir pour les contacts seulement</translation>
    </message>
    <message>
        <source>Whose alerts make a sound.</source>
        <translation>De qui les alertes sonnent.</translation>
    </message>
    <message>
        <source>Pictures</source>
        <translation>Images</translation>
    </message>
    <message>
        <source>Contact list pictures</source>
        <translation>Images de la liste de contacts</translation>
    </message>
    <message>
        <source>Sounds</source>
        <translation>Sons</translation>
    </message>
</context>
<context>
    <name>tray icon</name>
    <message>
        <source>Show</source>
        <translation>Afficher</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Quitter</translation>
    </message>
</context>
<context>
    <name>zepa</name>
    <message>
        <source>Command</source>
        <translation>Commande</translation>
    </message>
    <message>
        <source>run a command</source>
        <translation>exécuter une commande</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Fichier</translation>
    </message>
    <message>
        <source>A name without a folder is a file in ~/.local/state/zepa.</source>
        <translation>Un nom sans dossier désigne un fichier dans ~/.local/state/zepa.</translation>
    </message>
    <message>
        <source>Largest size</source>
        <translation>Taille maximale</translation>
    </message>
    <message>
        <source>When it is reached, a new file begins.</source>
        <translation>Quand elle est atteinte, un nouveau fichier commence.</translation>
    </message>
    <message>
        <source> KB</source>
        <translation> Ko</translation>
    </message>
    <message>
        <source>Older files kept</source>
        <translation>Anciens fichiers gardés</translation>
    </message>
    <message>
        <source>They have .1, .2 and so on behind their names.</source>
        <translation>Leurs noms se terminent par .1, .2 et ainsi de suite.</translation>
    </message>
    <message>
        <source>write to a file</source>
        <translation>écrire dans un fichier</translation>
    </message>
    <message>
        <source>Read out</source>
        <translation>Lire</translation>
    </message>
    <message>
        <source>Title and text</source>
        <translation>Titre et texte</translation>
    </message>
    <message>
        <source>Title only</source>
        <translation>Titre seulement</translation>
    </message>
    <message>
        <source>Text only</source>
        <translation>Texte seulement</translation>
    </message>
    <message>
        <source>Voice</source>
        <translation>Voix</translation>
    </message>
    <message>
        <source>A voice of espeak-ng, for example de or en-us. Empty: its own choice.</source>
        <translation>Une voix d’espeak-ng, par exemple de ou en-us. Vide : son propre choix.</translation>
    </message>
    <message>
        <source>Speed</source>
        <translation>Vitesse</translation>
    </message>
    <message>
        <source> words a minute</source>
        <translation> mots par minute</translation>
    </message>
    <message>
        <source>read out</source>
        <translation>lire à voix haute</translation>
    </message>
    <message>
        <source>Pop-up</source>
        <translation>Bulle</translation>
    </message>
    <message>
        <source>Sound</source>
        <translation>Son</translation>
    </message>
    <message>
        <source>Line in the chat</source>
        <translation>Ligne dans la discussion</translation>
    </message>
    <message>
        <source>Attention</source>
        <translation>Attention</translation>
    </message>
    <message>
        <source>The stored rules for these types were damaged, as a crash or a full disk leaves them, and are back as they were last: %1</source>
        <translation>Les règles enregistrées pour ces types étaient endommagées, comme les laisse un plantage ou un disque plein, et sont revenues à leur dernier état : %1</translation>
    </message>
    <message>
        <source>The stored rules for these types were damaged, and there was no good copy. They have their defaults now; the damaged files are in %2. Types: %1</source>
        <translation>Les règles enregistrées pour ces types étaient endommagées, et il n’y avait pas de bonne copie. Elles ont maintenant leurs valeurs par défaut ; les fichiers endommagés sont dans %2. Types : %1</translation>
    </message>
    <message>
        <source>The stored rules for these types are damaged and cannot be mended; the files are in %2. Types: %1</source>
        <translation>Les règles enregistrées pour ces types sont endommagées et irréparables ; les fichiers sont dans %2. Types : %1</translation>
    </message>
    <message>
        <source>The rules for %1 are stored, but there is no room for the copy that protects them; nothing more can be changed before there is.</source>
        <translation>Les règles pour %1 sont enregistrées, mais il n’y a pas de place pour la copie qui les protège ; rien ne peut être modifié d’ici là.</translation>
    </message>
    <message>
        <source>The change to the rules for %1 could not be stored, perhaps because the disk is full. It holds until the program ends.</source>
        <translation>La modification des règles pour %1 n’a pas pu être enregistrée, peut-être parce que le disque est plein. Elle vaut jusqu’à la fin du programme.</translation>
    </message>
    <message>
        <source>The rules for %1 were not changed: the file cannot be written, or there is no room for the copy that protects it.</source>
        <translation>Les règles pour %1 n’ont pas été modifiées : le fichier ne peut pas être écrit, ou il n’y a pas de place pour la copie qui le protège.</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Heure</translation>
    </message>
    <message>
        <source>Event</source>
        <translation>Événement</translation>
    </message>
    <message>
        <source>Title</source>
        <translation>Titre</translation>
    </message>
    <message>
        <source>About</source>
        <translation>Personne</translation>
    </message>
    <message>
        <source>Methods called</source>
        <translation>Méthodes appelées</translation>
    </message>
    <message>
        <source>on</source>
        <translation>oui</translation>
    </message>
    <message>
        <source>off</source>
        <translation>non</translation>
    </message>
    <message>
        <source>no rule</source>
        <translation>aucune règle</translation>
    </message>
    <message>
        <source>one rule</source>
        <translation>une règle</translation>
    </message>
    <message>
        <source>%1 rules</source>
        <translation>%1 règles</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1 : %2</translation>
    </message>
    <message>
        <source>, </source>
        <translation>, </translation>
    </message>
    <message>
        <source>%1 (sample %2)</source>
        <translation>%1 (essai %2)</translation>
    </message>
    <message>
        <source>Ann: Shall we have lunch at noon?</source>
        <translation>Anne : On déjeune à midi ?</translation>
    </message>
    <message>
        <source>Ann</source>
        <translation>Anne</translation>
    </message>
    <message>
        <source>No notification service is there to show the pop-up.</source>
        <translation>Aucun service de notification n’est là pour afficher la bulle.</translation>
    </message>
    <message>
        <source>The notification service does not know this event yet.</source>
        <translation>Le service de notification ne connaît pas encore cet événement.</translation>
    </message>
    <message>
        <source>The setting for alert sounds keeps it silent.</source>
        <translation>Le réglage des sons d’alerte le rend muet.</translation>
    </message>
    <message>
        <source>The sound file is not there.</source>
        <translation>Le fichier son est absent.</translation>
    </message>
    <message>
        <source>No chat with Ann is open to write a line in.</source>
        <translation>Aucune discussion avec Anne n’est ouverte pour y écrire une ligne.</translation>
    </message>
    <message>
        <source>Sample %1: there is no rule for “%2”, so nothing happens.</source>
        <translation>Essai %1 : il n’y a pas de règle pour « %2 », il ne se passe donc rien.</translation>
    </message>
    <message>
        <source>Sample %1 was dropped as a repeat.</source>
        <translation>L’essai %1 a été ignoré comme répétition.</translation>
    </message>
    <message>
        <source>Sample %1 went to: %2.</source>
        <translation>L’essai %1 est allé à : %2.</translation>
    </message>
    <message>
        <source>%1 writes</source>
        <translation>%1 écrit</translation>
    </message>
    <message>
        <source>Lunch at noon?</source>
        <translation>On déjeune à midi ?</translation>
    </message>
    <message>
        <source>%1 writes in a background chat</source>
        <translation>%1 écrit dans une discussion en arrière-plan</translation>
    </message>
    <message>
        <source>Are you still there?</source>
        <translation>Tu es encore là ?</translation>
    </message>
    <message>
        <source>%1 writes first</source>
        <translation>%1 écrit en premier</translation>
    </message>
    <message>
        <source>Good morning!</source>
        <translation>Bonjour !</translation>
    </message>
    <message>
        <source>You write to %1</source>
        <translation>Vous écrivez à %1</translation>
    </message>
    <message>
        <source>On my way</source>
        <translation>J’arrive</translation>
    </message>
    <message>
        <source>%1 sends an alert</source>
        <translation>%1 envoie une alerte</translation>
    </message>
    <message>
        <source>You got an alert</source>
        <translation>Vous avez reçu une alerte</translation>
    </message>
    <message>
        <source>You send %1 an alert</source>
        <translation>Vous envoyez une alerte à %1</translation>
    </message>
    <message>
        <source>You sent an alert</source>
        <translation>Vous avez envoyé une alerte</translation>
    </message>
    <message>
        <source>E-mail waits</source>
        <translation>Du courrier attend</translation>
    </message>
    <message>
        <source>New e-mail</source>
        <translation>Nouveau courriel</translation>
    </message>
    <message>
        <source>3 unread messages</source>
        <translation>3 messages non lus</translation>
    </message>
    <message>
        <source>The program has news</source>
        <translation>Le programme a des nouvelles</translation>
    </message>
    <message>
        <source>Information</source>
        <translation>Information</translation>
    </message>
    <message>
        <source>A file was saved</source>
        <translation>Un fichier a été enregistré</translation>
    </message>
    <message>
        <source>The program fails</source>
        <translation>Le programme signale une erreur</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Erreur</translation>
    </message>
    <message>
        <source>A file could not be saved</source>
        <translation>Un fichier n’a pas pu être enregistré</translation>
    </message>
    <message>
        <source>Your account logs in</source>
        <translation>Votre compte se connecte</translation>
    </message>
    <message>
        <source>Logged in</source>
        <translation>Connecté</translation>
    </message>
    <message>
        <source>Your account is connected</source>
        <translation>Votre compte est connecté</translation>
    </message>
    <message>
        <source>%1 comes online</source>
        <translation>%1 se connecte</translation>
    </message>
    <message>
        <source>is available</source>
        <translation>est disponible</translation>
    </message>
    <message>
        <source>%1 goes away</source>
        <translation>%1 s’absente</translation>
    </message>
    <message>
        <source>is away</source>
        <translation>est absent</translation>
    </message>
    <message>
        <source>%1 goes offline</source>
        <translation>%1 se déconnecte</translation>
    </message>
    <message>
        <source>is not available</source>
        <translation>est indisponible</translation>
    </message>
    <message>
        <source>%1 changes status</source>
        <translation>%1 change de statut</translation>
    </message>
    <message>
        <source>back in ten minutes</source>
        <translation>de retour dans dix minutes</translation>
    </message>
    <message>
        <source>%1 starts typing</source>
        <translation>%1 commence à écrire</translation>
    </message>
    <message>
        <source>is typing</source>
        <translation>écrit</translation>
    </message>
    <message>
        <source>%1 stops typing</source>
        <translation>%1 cesse d’écrire</translation>
    </message>
    <message>
        <source>stopped typing</source>
        <translation>n’écrit plus</translation>
    </message>
    <message>
        <source>%1 writes in a conference</source>
        <translation>%1 écrit dans une conférence</translation>
    </message>
    <message>
        <source>Hello everybody</source>
        <translation>Bonjour à tous</translation>
    </message>
    <message>
        <source>%1 writes in a background conference</source>
        <translation>%1 écrit dans une conférence en arrière-plan</translation>
    </message>
    <message>
        <source>Who takes the minutes?</source>
        <translation>Qui rédige le compte rendu ?</translation>
    </message>
    <message>
        <source>Verdict</source>
        <translation>Verdict</translation>
    </message>
    <message>
        <source>A program and its arguments. %t is the title, %m the message, %B the contact; the program also finds them in its environment, as ZEPA_TITLE, ZEPA_TEXT and ZEPA_BUDDY_NAME. Use quotes to group words. The command does not run in a shell.</source>
        <translation>Un programme et ses arguments. %t est le titre, %m le message, %B le contact ; le programme les trouve aussi dans son environnement, sous ZEPA_TITLE, ZEPA_TEXT et ZEPA_BUDDY_NAME. Les guillemets regroupent des mots. La commande ne s’exécute pas dans un shell.</translation>
    </message>
    <message>
        <source>&quot;$%1&quot; instead of %2</source>
        <translation>&quot;$%1&quot; au lieu de %2</translation>
    </message>
    <message>
        <source>Unsafe: anyone who sends a message could make the shell run commands. Use environment variables in double quotes: %1.</source>
        <translation>Dangereux : quiconque envoie un message pourrait faire exécuter des commandes par le shell. Utilisez des variables d’environnement entre guillemets doubles : %1.</translation>
    </message>
    <message>
        <source>The stored rules for these types are damaged and were left as they are, because %2 already holds %3 files. Move those files elsewhere and restart Zepa. Types: %1</source>
        <translation>Les règles enregistrées pour ces types sont endommagées et ont été laissées telles quelles, car %2 contient déjà %3 fichiers. Déplacez ces fichiers ailleurs et redémarrez Zepa. Types : %1</translation>
    </message>
    <message>
        <source>These types have no rules, because their rule files in %2 cannot be read or are not regular files: %1</source>
        <translation>Ces types n’ont pas de règles, car leurs fichiers de règles dans %2 ne peuvent pas être lus ou ne sont pas des fichiers ordinaires : %1</translation>
    </message>
    <message>
        <source>The rules for these types cannot be changed and are not backed up, because their files in %2 are larger than 4 MiB: %1</source>
        <translation>Les règles pour ces types ne peuvent pas être modifiées et n’ont pas de copie de sauvegarde, car leurs fichiers dans %2 dépassent 4 Mio : %1</translation>
    </message>
    <message>
        <source>The rules for %1 were not changed: another program is changing rules in the same folder. Try again.</source>
        <translation>Les règles pour %1 n’ont pas été modifiées : un autre programme modifie des règles dans le même dossier. Réessayez.</translation>
    </message>
</context>
<context>
    <name>zepa::ChatHistory</name>
    <message>
        <source>Information:</source>
        <translation>Information :</translation>
    </message>
</context>
<context>
    <name>zepa::ChatWindow</name>
    <message>
        <source>&amp;Send</source>
        <translation>&amp;Envoyer</translation>
    </message>
    <message>
        <source>Write a message</source>
        <translation>Écrire un message</translation>
    </message>
    <message>
        <source>Conversation with %1</source>
        <translation>Discussion avec %1</translation>
    </message>
    <message>
        <source>Message to %1</source>
        <translation>Message à %1</translation>
    </message>
    <message>
        <source>You</source>
        <translation>Vous</translation>
    </message>
</context>
<context>
    <name>zepa::ContactModel</name>
    <message>
        <source>stranger</source>
        <translation>inconnu</translation>
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
        <translation>Contacts</translation>
    </message>
    <message>
        <source>C&amp;ontacts</source>
        <translation>C&amp;ontacts</translation>
    </message>
    <message>
        <source>Open the &amp;chat</source>
        <translation>Ouvrir la &amp;discussion</translation>
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
        <translation>De %1 à %2.</translation>
    </message>
</context>
<context>
    <name>zepa::JournalText</name>
    <message>
        <source>It was dropped as a repeat of a posting that the journal does not hold any more. Repeats are dropped for %1 s (setting &quot;duplicated_notifications_time&quot;).</source>
        <translation>Elle a été ignorée comme répétition d’une annonce que le journal ne contient plus. Les répétitions sont ignorées pendant %1 s (réglage &quot;duplicated_notifications_time&quot;).</translation>
    </message>
    <message>
        <source>It was dropped as a repeat: the same type and title was posted at %1. Times of day are compared without their dates, so it stays a repeat until that time has come again.</source>
        <translation>Elle a été ignorée comme répétition : le même type avec le même titre a été annoncé à %1. Les heures sont comparées sans leur date, elle reste donc une répétition jusqu’à ce que cette heure revienne.</translation>
    </message>
    <message>
        <source>It was dropped as a repeat: the same type and title was posted %1 s ago, and repeats are dropped for %2 s (setting &quot;duplicated_notifications_time&quot;).</source>
        <translation>Elle a été ignorée comme répétition : le même type avec le même titre a été annoncé il y a %1 s, et les répétitions sont ignorées pendant %2 s (réglage &quot;duplicated_notifications_time&quot;).</translation>
    </message>
    <message>
        <source>That was type %1 with title &quot;%2&quot;: type and title written in one count as the same.</source>
        <translation>C’était le type %1 avec le titre &quot;%2&quot; : le type et le titre écrits à la suite comptent comme identiques.</translation>
    </message>
    <message>
        <source>No sound: no rule of this type calls the sound method.</source>
        <translation>Pas de son : aucune règle de ce type n’appelle la méthode du son.</translation>
    </message>
    <message>
        <source>No sound: the sender is not on the contact list (setting &quot;alerts&quot;: buddies_only).</source>
        <translation>Pas de son : l’expéditeur n’est pas dans la liste de contacts (réglage &quot;alerts&quot; : buddies_only).</translation>
    </message>
    <message>
        <source>No sound: the rule&apos;s sound file is not there.</source>
        <translation>Pas de son : le fichier son de la règle est absent.</translation>
    </message>
    <message>
        <source>The sound method was called, and its file handed to the sound player.</source>
        <translation>La méthode du son a été appelée, et son fichier remis au lecteur.</translation>
    </message>
    <message>
        <source>No line in a chat: no rule of this type calls the chat window method.</source>
        <translation>Pas de ligne dans une discussion : aucune règle de ce type n’appelle la méthode de la fenêtre de discussion.</translation>
    </message>
    <message>
        <source>No line in a chat: the posting is not about anybody.</source>
        <translation>Pas de ligne dans une discussion : l’annonce ne concerne personne.</translation>
    </message>
    <message>
        <source>No line in a chat: the chat window of %1 is not open.</source>
        <translation>Pas de ligne dans une discussion : la fenêtre de discussion de %1 n’est pas ouverte.</translation>
    </message>
    <message>
        <source>A line was written into the chat window of %1.</source>
        <translation>Une ligne a été écrite dans la fenêtre de discussion de %1.</translation>
    </message>
    <message>
        <source>pop-up</source>
        <translation>bulle</translation>
    </message>
    <message>
        <source>pop-up waits</source>
        <translation>bulle en attente</translation>
    </message>
    <message>
        <source>clicked</source>
        <translation>cliquée</translation>
    </message>
    <message>
        <source>timed out</source>
        <translation>expirée</translation>
    </message>
    <message>
        <source>repeat</source>
        <translation>répétition</translation>
    </message>
    <message>
        <source>no rule</source>
        <translation>pas de règle</translation>
    </message>
    <message>
        <source>no rule for a pop-up</source>
        <translation>pas de règle pour une bulle</translation>
    </message>
    <message>
        <source>no session bus</source>
        <translation>pas de bus de session</translation>
    </message>
    <message>
        <source>no notification service</source>
        <translation>pas de service de notification</translation>
    </message>
    <message>
        <source>not registered</source>
        <translation>non enregistré</translation>
    </message>
    <message>
        <source>unknown type</source>
        <translation>type inconnu</translation>
    </message>
    <message>
        <source>A pop-up was handed to the notification service. It has no action, so nobody tells what became of it.</source>
        <translation>Une bulle a été remise au service de notification. Elle n’a pas d’action, personne ne dit donc ce qu’elle est devenue.</translation>
    </message>
    <message>
        <source>A pop-up was handed to the notification service and waits for an answer.</source>
        <translation>Une bulle a été remise au service de notification et attend une réponse.</translation>
    </message>
    <message>
        <source>It popped up and was clicked.</source>
        <translation>La bulle s’est affichée et a été cliquée.</translation>
    </message>
    <message>
        <source>A pop-up was handed to the notification service and ended without a click: its time was over, it was closed, or the service gave it up.</source>
        <translation>Une bulle a été remise au service de notification et a pris fin sans clic : son temps était écoulé, elle a été fermée, ou le service l’a abandonnée.</translation>
    </message>
    <message>
        <source>The type &quot;%1&quot; has no rule, so no method was called.</source>
        <translation>Le type &quot;%1&quot; n’a pas de règle, aucune méthode n’a donc été appelée.</translation>
    </message>
    <message>
        <source>No rule of the type &quot;%1&quot; calls the pop-up method; called was: %2.</source>
        <translation>Aucune règle du type &quot;%1&quot; n’appelle la méthode des bulles ; a été appelé : %2.</translation>
    </message>
    <message>
        <source>The pop-up method was called, but there is no session bus, so no notification service.</source>
        <translation>La méthode des bulles a été appelée, mais il n’y a pas de bus de session, donc pas de service de notification.</translation>
    </message>
    <message>
        <source>The pop-up method was called, but there is no notification service on the session bus.</source>
        <translation>La méthode des bulles a été appelée, mais il n’y a pas de service de notification sur le bus de session.</translation>
    </message>
    <message>
        <source>The pop-up method was called, but the type &quot;%1&quot; is not registered with the notification service.</source>
        <translation>La méthode des bulles a été appelée, mais le type &quot;%1&quot; n’est pas enregistré auprès du service de notification.</translation>
    </message>
    <message>
        <source>Nobody registered a notification type &quot;%1&quot;.</source>
        <translation>Personne n’a enregistré de type de notification &quot;%1&quot;.</translation>
    </message>
    <message>
        <source>Why did this not pop up?</source>
        <translation>Pourquoi n’y a-t-il pas eu de bulle ?</translation>
    </message>
    <message>
        <source>nobody</source>
        <translation>personne</translation>
    </message>
    <message>
        <source>%1 (not on the contact list)</source>
        <translation>%1 (pas dans la liste de contacts)</translation>
    </message>
    <message>
        <source>Posted: %1</source>
        <translation>Annoncée : %1</translation>
    </message>
    <message>
        <source>Type: %1 (%2)</source>
        <translation>Type : %1 (%2)</translation>
    </message>
    <message>
        <source>Title: %1</source>
        <translation>Titre : %1</translation>
    </message>
    <message>
        <source>Text: %1</source>
        <translation>Texte : %1</translation>
    </message>
    <message>
        <source>About: %1</source>
        <translation>Concerne : %1</translation>
    </message>
    <message>
        <source>Methods in the order of their calls (the newest rule comes first):</source>
        <translation>Méthodes dans l’ordre de leurs appels (la règle la plus récente d’abord) :</translation>
    </message>
    <message>
        <source>No sound: alert sounds are turned off (setting &quot;alerts&quot;: %1).</source>
        <translation>Pas de son : les sons d’alerte sont désactivés (réglage &quot;alerts&quot; : %1).</translation>
    </message>
</context>
<context>
    <name>zepa::JournalView</name>
    <message>
        <source>Why did this not pop up?</source>
        <translation>Pourquoi n’y a-t-il pas eu de bulle ?</translation>
    </message>
    <message>
        <source>The journal says here for each posting why it did not pop up.</source>
        <translation>Le journal dit ici pour chaque annonce pourquoi il n’y a pas eu de bulle.</translation>
    </message>
    <message>
        <source>Type, title, text, person</source>
        <translation>Type, titre, texte, personne</translation>
    </message>
    <message>
        <source>&amp;Filter:</source>
        <translation>&amp;Filtre :</translation>
    </message>
    <message>
        <source>All verdicts</source>
        <translation>Tous les verdicts</translation>
    </message>
    <message>
        <source>Cop&amp;y</source>
        <translation>Cop&amp;ier</translation>
    </message>
    <message>
        <source>Puts the chosen lines onto the clipboard</source>
        <translation>Met les lignes choisies dans le presse-papiers</translation>
    </message>
    <message>
        <source>Journal</source>
        <translation>Journal</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <comment>event and verdict</comment>
        <translation>%1 : %2</translation>
    </message>
    <message>
        <source>Verdict that is shown</source>
        <translation>Verdict affiché</translation>
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
        <translation>&amp;Quitter</translation>
    </message>
    <message>
        <source>&amp;Notification settings...</source>
        <translation>&amp;Réglages des notifications…</translation>
    </message>
    <message>
        <source>&amp;Contact</source>
        <translation>&amp;Contact</translation>
    </message>
    <message>
        <source>&amp;Journal</source>
        <translation>&amp;Journal</translation>
    </message>
    <message>
        <source>&amp;Copy the chosen lines</source>
        <translation>&amp;Copier les lignes choisies</translation>
    </message>
    <message>
        <source>Copy &amp;all lines</source>
        <translation>Copier &amp;toutes les lignes</translation>
    </message>
    <message>
        <source>C&amp;lear</source>
        <translation>&amp;Effacer</translation>
    </message>
    <message>
        <source>Another program is changing rules in %1. Events will be announced as soon as it has finished.</source>
        <translation>Un autre programme modifie des règles dans %1. Les événements seront annoncés dès qu’il aura terminé.</translation>
    </message>
    <message>
        <source>Zepa cannot write to %1: your rules are in use as they are, and changes will not be saved.</source>
        <translation>Zepa ne peut pas écrire dans %1 : vos règles s’appliquent telles quelles, et les changements ne seront pas enregistrés.</translation>
    </message>
    <message>
        <source>Zepa cannot write to %1: the default rules are in use, and changes will not be saved.</source>
        <translation>Zepa ne peut pas écrire dans %1 : les règles par défaut s’appliquent, et les changements ne seront pas enregistrés.</translation>
    </message>
    <message>
        <source>The settings file %1 cannot be read, so all settings have their defaults.</source>
        <translation>Le fichier des réglages %1 ne peut pas être lu : tous les réglages ont donc leurs valeurs par défaut.</translation>
    </message>
</context>
<context>
    <name>zepa::NoticeBar</name>
    <message>
        <source>&amp;Understood</source>
        <translation>Com&amp;pris</translation>
    </message>
</context>
<context>
    <name>zepa::NotificationSettings</name>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Annuler</translation>
    </message>
    <message>
        <source>Red&amp;o</source>
        <translation>Ré&amp;tablir</translation>
    </message>
    <message>
        <source>Space adds or removes a rule. Changes are stored at once.</source>
        <translation>La barre d’espace ajoute ou supprime une règle. Les modifications sont enregistrées aussitôt.</translation>
    </message>
    <message>
        <source>Events and methods</source>
        <translation>Événements et méthodes</translation>
    </message>
    <message>
        <source>A check mark stands where an event uses a method. Space toggles it.</source>
        <translation>Une coche indique qu’un événement utilise une méthode. La barre d’espace la met ou l’enlève.</translation>
    </message>
    <message>
        <source>For all events</source>
        <translation>Pour tous les événements</translation>
    </message>
    <message>
        <source>Nothing to undo.</source>
        <translation>Rien à annuler.</translation>
    </message>
    <message>
        <source>Last change: %1</source>
        <translation>Dernière modification : %1</translation>
    </message>
</context>
<context>
    <name>zepa::ProblemBar</name>
    <message>
        <source>&amp;Try again</source>
        <translation>&amp;Réessayer</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Avertissement</translation>
    </message>
</context>
<context>
    <name>zepa::RuleEditor</name>
    <message>
        <source>Add: %1</source>
        <translation>Ajouter : %1</translation>
    </message>
    <message>
        <source>Remove: %1</source>
        <translation>Supprimer : %1</translation>
    </message>
    <message>
        <source>Change: %1, %2</source>
        <translation>Modifier : %1, %2</translation>
    </message>
    <message>
        <source>Restore defaults: %1</source>
        <translation>Valeurs par défaut : %1</translation>
    </message>
    <message>
        <source>Change: %1</source>
        <translation>Modifier : %1</translation>
    </message>
    <message>
        <source>Undone: %1</source>
        <translation>Annulé : %1</translation>
    </message>
    <message>
        <source>All rules are stored now.</source>
        <translation>Toutes les règles sont maintenant enregistrées.</translation>
    </message>
    <message>
        <source>%1, %2</source>
        <translation>%1, %2</translation>
    </message>
    <message>
        <source>Redone: %1</source>
        <translation>Refait : %1</translation>
    </message>
    <message>
        <source>Rules or settings were changed outside this window.</source>
        <translation>Des règles ou des réglages ont été modifiés en dehors de cette fenêtre.</translation>
    </message>
</context>
<context>
    <name>zepa::RulePane</name>
    <message>
        <source>Ru&amp;le:</source>
        <translation>Règ&amp;le :</translation>
    </message>
    <message>
        <source>&amp;Add a rule</source>
        <translation>A&amp;jouter une règle</translation>
    </message>
    <message>
        <source>Re&amp;move this rule</source>
        <translation>&amp;Supprimer cette règle</translation>
    </message>
    <message>
        <source>Post a &amp;sample</source>
        <translation>&amp;Essayer</translation>
    </message>
    <message>
        <source>Restore &amp;defaults</source>
        <translation>Valeurs par &amp;défaut</translation>
    </message>
    <message>
        <source>No event is chosen</source>
        <translation>Aucun événement choisi</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <comment>event, method</comment>
        <translation>%1 : %2</translation>
    </message>
    <message>
        <source>1 (newest)</source>
        <translation>1 (la plus récente)</translation>
    </message>
    <message>
        <source>&amp;Add another rule</source>
        <translation>A&amp;jouter une autre règle</translation>
    </message>
    <message>
        <source>Choose an event in the table.</source>
        <translation>Choisissez un événement dans le tableau.</translation>
    </message>
    <message>
        <source>Choose the column of a method to see its rule.</source>
        <translation>Choisissez la colonne d’une méthode pour voir sa règle.</translation>
    </message>
    <message>
        <source>There is no rule, so this event does not use this method.</source>
        <translation>Il n’y a pas de règle, cet événement n’utilise donc pas cette méthode.</translation>
    </message>
    <message>
        <source>This method has no settings.</source>
        <translation>Cette méthode n’a pas de réglages.</translation>
    </message>
    <message>
        <source>All %1 rules act, the newest first. Space in the table and the command line reach the newest one. The next start of the program turns their order round.</source>
        <translation>Les %1 règles agissent toutes, la plus récente d’abord. La barre d’espace dans le tableau et la ligne de commande atteignent la plus récente. Le prochain démarrage du programme inverse leur ordre.</translation>
    </message>
    <message>
        <source>Triggers a test event so you can see and hear the result.</source>
        <translation>Déclenche un événement de test, pour voir et entendre le résultat.</translation>
    </message>
    <message>
        <source>Resets all notifications for this event to the defaults.</source>
        <translation>Rétablit les valeurs par défaut de toutes les notifications de cet événement.</translation>
    </message>
</context>
<context>
    <name>zepa::RuleTableModel</name>
    <message>
        <source>%1: %2</source>
        <comment>event, description</comment>
        <translation>%1 : %2</translation>
    </message>
    <message>
        <source>%1, %2: %3</source>
        <comment>event, method, count of rules</comment>
        <translation>%1, %2 : %3</translation>
    </message>
    <message>
        <source>Space adds a rule.</source>
        <translation>La barre d’espace ajoute une règle.</translation>
    </message>
    <message>
        <source>Space removes the newest rule.</source>
        <translation>La barre d’espace supprime la règle la plus récente.</translation>
    </message>
    <message>
        <source>Meaning</source>
        <translation>Signification</translation>
    </message>
    <message>
        <source>%1
Identifier: %2</source>
        <translation>%1
Identifiant : %2</translation>
    </message>
    <message>
        <source>%1
Add-on method. Identifier: %2</source>
        <translation>%1
Méthode complémentaire. Identifiant : %2</translation>
    </message>
</context>
<context>
    <name>zepa::SettingsDialog</name>
    <message>
        <source>Notification settings</source>
        <translation>Réglages des notifications</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>&amp;Fermer</translation>
    </message>
</context>
<context>
    <name>zepa::Simulator</name>
    <message>
        <source>Simulator</source>
        <translation>Simulateur</translation>
    </message>
    <message>
        <source>With an &amp;action for a click</source>
        <translation>Avec une &amp;action pour un clic</translation>
    </message>
    <message>
        <source>A sample text</source>
        <translation>Un texte d’exemple</translation>
    </message>
    <message>
        <source>A click on the pop-up opens the chat. Only a pop-up with an action tells whether it was clicked; only one without can be sticky.</source>
        <translation>Un clic sur la bulle ouvre la discussion. Seule une bulle avec action dit si on a cliqué dessus ; seule une sans action peut être persistante.</translation>
    </message>
    <message>
        <source>&amp;Post</source>
        <translation>É&amp;mettre</translation>
    </message>
    <message>
        <source>&amp;Event:</source>
        <translation>É&amp;vénement :</translation>
    </message>
    <message>
        <source>&amp;Text:</source>
        <translation>&amp;Texte :</translation>
    </message>
    <message>
        <source>Event to simulate</source>
        <translation>Événement à simuler</translation>
    </message>
</context>
<context>
    <name>zepa::SoundEdit</name>
    <message>
        <source>&amp;Play</source>
        <translation>Jo&amp;uer</translation>
    </message>
    <message>
        <source>Play the sound</source>
        <translation>Jouer le son</translation>
    </message>
    <message>
        <source>C&amp;hoose...</source>
        <translation>C&amp;hoisir…</translation>
    </message>
    <message>
        <source>Choose a sound file</source>
        <translation>Choisir un fichier son</translation>
    </message>
    <message>
        <source>Choose a sound</source>
        <translation>Choisir un son</translation>
    </message>
    <message>
        <source>Sounds (%1)</source>
        <translation>Sons (%1)</translation>
    </message>
    <message>
        <source>%1 cannot be played, so it was not taken.</source>
        <translation>%1 ne peut pas être joué et n’a donc pas été retenu.</translation>
    </message>
    <message>
        <source>This file cannot be played.</source>
        <translation>Ce fichier ne peut pas être joué.</translation>
    </message>
</context>
<context>
    <name>zepa::StorageStatus</name>
    <message>
        <source>The rules of “%1” were not changed: the file %2 cannot be written, or there is no room on the disk for the copy that protects it.</source>
        <translation>Les règles de « %1 » n’ont pas été modifiées : le fichier %2 ne peut pas être écrit, ou il n’y a pas de place sur le disque pour la copie qui le protège.</translation>
    </message>
    <message>
        <source>The rules of “%1” are stored, but there is no room on the disk for the copy that protects them. Make room before you change more.</source>
        <translation>Les règles de « %1 » sont enregistrées, mais il n’y a pas de place sur le disque pour la copie qui les protège. Faites de la place avant d’en modifier d’autres.</translation>
    </message>
    <message>
        <source>The setting “%1” cannot be written, so it was not changed. The file is %2.</source>
        <translation>Le réglage « %1 » ne peut pas être écrit, il n’a donc pas été modifié. Le fichier est %2.</translation>
    </message>
    <message>
        <source>These events have rules that could not be written to %2, perhaps because the disk is full. They are in use until the client ends: %1.</source>
        <translation>Ces événements ont des règles qui n’ont pas pu être écrites dans %2, peut-être parce que le disque est plein. Elles valent jusqu’à la fin du programme : %1.</translation>
    </message>
    <message>
        <source>, </source>
        <translation>, </translation>
    </message>
    <message>
        <source>The rules were not changed: another program is changing rules in %1. Try again when it has finished.</source>
        <translation>Les règles n’ont pas été modifiées : un autre programme modifie des règles dans %1. Réessayez quand il aura terminé.</translation>
    </message>
    <message>
        <source>The setting was not changed: another program is changing %1. Try again when it has finished.</source>
        <translation>Le réglage n’a pas été modifié : un autre programme modifie %1. Réessayez quand il aura terminé.</translation>
    </message>
</context>
</TS>
