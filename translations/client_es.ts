<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es_ES" sourcelanguage="en">
<context>
    <name>presence</name>
    <message>
        <source>available</source>
        <translation>disponible</translation>
    </message>
    <message>
        <source>away</source>
        <translation>ausente</translation>
    </message>
    <message>
        <source>not available</source>
        <translation>no disponible</translation>
    </message>
</context>
<context>
    <name>settings</name>
    <message>
        <source>Drop repeats for</source>
        <translation>Omitir repeticiones durante</translation>
    </message>
    <message>
        <source>The same event with the same title is announced once in this time.</source>
        <translation>El mismo suceso con el mismo título se anuncia una vez en este tiempo.</translation>
    </message>
    <message>
        <source> s</source>
        <translation> s</translation>
    </message>
    <message>
        <source>Alert sounds</source>
        <translation>Sonidos de los avisos</translation>
    </message>
    <message>
        <source>Mute</source>
        <translation>Silencio</translation>
    </message>
    <message>
        <source>Notify always</source>
        <translation>Avisar siempre</translation>
    </message>
    <message>
        <source>Notify from buddies only</source>
        <translation>Avisar solo de contactos</translation>
    </message>
    <message>
        <source>Whose alerts make a sound.</source>
        <translation>De quién suenan los avisos.</translation>
    </message>
    <message>
        <source>Pictures</source>
        <translation>Imágenes</translation>
    </message>
    <message>
        <source>Contact list pictures</source>
        <translation>Imágenes de la lista de contactos</translation>
    </message>
    <message>
        <source>Sounds</source>
        <translation>Sonidos</translation>
    </message>
</context>
<context>
    <name>tray icon</name>
    <message>
        <source>Show</source>
        <translation>Mostrar</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Salir</translation>
    </message>
</context>
<context>
    <name>zepa</name>
    <message>
        <source>Command</source>
        <translation>Orden</translation>
    </message>
    <message>
        <source>run a command</source>
        <translation>ejecutar una orden</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Archivo</translation>
    </message>
    <message>
        <source>A name without a folder is a file in ~/.local/state/zepa.</source>
        <translation>Un nombre sin carpeta es un archivo en ~/.local/state/zepa.</translation>
    </message>
    <message>
        <source>Largest size</source>
        <translation>Tamaño máximo</translation>
    </message>
    <message>
        <source>When it is reached, a new file begins.</source>
        <translation>Cuando se alcanza, empieza un archivo nuevo.</translation>
    </message>
    <message>
        <source> KB</source>
        <translation> KB</translation>
    </message>
    <message>
        <source>Older files kept</source>
        <translation>Archivos antiguos guardados</translation>
    </message>
    <message>
        <source>They have .1, .2 and so on behind their names.</source>
        <translation>Llevan .1, .2, etc. detrás de sus nombres.</translation>
    </message>
    <message>
        <source>write to a file</source>
        <translation>escribir en un archivo</translation>
    </message>
    <message>
        <source>Read out</source>
        <translation>Leer</translation>
    </message>
    <message>
        <source>Title and text</source>
        <translation>Título y texto</translation>
    </message>
    <message>
        <source>Title only</source>
        <translation>Solo título</translation>
    </message>
    <message>
        <source>Text only</source>
        <translation>Solo texto</translation>
    </message>
    <message>
        <source>Voice</source>
        <translation>Voz</translation>
    </message>
    <message>
        <source>A voice of espeak-ng, for example de or en-us. Empty: its own choice.</source>
        <translation>Una voz de espeak-ng, por ejemplo de o en-us. Vacío: su propia elección.</translation>
    </message>
    <message>
        <source>Speed</source>
        <translation>Velocidad</translation>
    </message>
    <message>
        <source> words a minute</source>
        <translation> palabras por minuto</translation>
    </message>
    <message>
        <source>read out</source>
        <translation>leer en voz alta</translation>
    </message>
    <message>
        <source>Pop-up</source>
        <translation>Aviso emergente</translation>
    </message>
    <message>
        <source>Sound</source>
        <translation>Sonido</translation>
    </message>
    <message>
        <source>Line in the chat</source>
        <translation>Línea en el chat</translation>
    </message>
    <message>
        <source>Attention</source>
        <translation>Atención</translation>
    </message>
    <message>
        <source>The stored rules for these types were damaged, as a crash or a full disk leaves them, and are back as they were last: %1</source>
        <translation>Las reglas guardadas de estos tipos estaban dañadas, como las deja un fallo o un disco lleno, y vuelven a estar como la última vez: %1</translation>
    </message>
    <message>
        <source>The stored rules for these types were damaged, and there was no good copy. They have their defaults now; the damaged files are in %2. Types: %1</source>
        <translation>Las reglas guardadas de estos tipos estaban dañadas y no había copia buena. Ahora tienen sus valores predeterminados; los archivos dañados están en %2. Tipos: %1</translation>
    </message>
    <message>
        <source>The stored rules for these types are damaged and cannot be mended; the files are in %2. Types: %1</source>
        <translation>Las reglas guardadas de estos tipos están dañadas y no se pueden reparar; los archivos están en %2. Tipos: %1</translation>
    </message>
    <message>
        <source>The rules for %1 are stored, but there is no room for the copy that protects them; nothing more can be changed before there is.</source>
        <translation>Las reglas de %1 están guardadas, pero no hay sitio para la copia que las protege; hasta entonces no se puede cambiar nada más.</translation>
    </message>
    <message>
        <source>The change to the rules for %1 could not be stored, perhaps because the disk is full. It holds until the program ends.</source>
        <translation>El cambio de las reglas de %1 no se pudo guardar, quizá porque el disco está lleno. Vale hasta que termine el programa.</translation>
    </message>
    <message>
        <source>The rules for %1 were not changed: the file cannot be written, or there is no room for the copy that protects it.</source>
        <translation>Las reglas de %1 no se cambiaron: no se puede escribir el archivo, o no hay sitio para la copia que lo protege.</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Hora</translation>
    </message>
    <message>
        <source>Event</source>
        <translation>Suceso</translation>
    </message>
    <message>
        <source>Title</source>
        <translation>Título</translation>
    </message>
    <message>
        <source>About</source>
        <translation>Persona</translation>
    </message>
    <message>
        <source>Methods called</source>
        <translation>Métodos llamados</translation>
    </message>
    <message>
        <source>on</source>
        <translation>sí</translation>
    </message>
    <message>
        <source>off</source>
        <translation>no</translation>
    </message>
    <message>
        <source>no rule</source>
        <translation>sin regla</translation>
    </message>
    <message>
        <source>one rule</source>
        <translation>una regla</translation>
    </message>
    <message>
        <source>%1 rules</source>
        <translation>%1 reglas</translation>
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
        <translation>%1 (muestra %2)</translation>
    </message>
    <message>
        <source>Ann: Shall we have lunch at noon?</source>
        <translation>Ana: ¿Comemos a mediodía?</translation>
    </message>
    <message>
        <source>Ann</source>
        <translation>Ana</translation>
    </message>
    <message>
        <source>No notification service is there to show the pop-up.</source>
        <translation>No hay servicio de notificaciones que muestre el aviso emergente.</translation>
    </message>
    <message>
        <source>The notification service does not know this event yet.</source>
        <translation>El servicio de notificaciones aún no conoce este suceso.</translation>
    </message>
    <message>
        <source>The setting for alert sounds keeps it silent.</source>
        <translation>El ajuste de sonidos de avisos lo mantiene en silencio.</translation>
    </message>
    <message>
        <source>The sound file is not there.</source>
        <translation>El archivo de sonido no está.</translation>
    </message>
    <message>
        <source>No chat with Ann is open to write a line in.</source>
        <translation>No hay ningún chat con Ana abierto en el que escribir una línea.</translation>
    </message>
    <message>
        <source>Sample %1: there is no rule for “%2”, so nothing happens.</source>
        <translation>Muestra %1: no hay regla para «%2», así que no pasa nada.</translation>
    </message>
    <message>
        <source>Sample %1 was dropped as a repeat.</source>
        <translation>La muestra %1 se omitió por repetida.</translation>
    </message>
    <message>
        <source>Sample %1 went to: %2.</source>
        <translation>La muestra %1 fue a: %2.</translation>
    </message>
    <message>
        <source>%1 writes</source>
        <translation>%1 escribe</translation>
    </message>
    <message>
        <source>Lunch at noon?</source>
        <translation>¿Comemos a mediodía?</translation>
    </message>
    <message>
        <source>%1 writes in a background chat</source>
        <translation>%1 escribe en un chat en segundo plano</translation>
    </message>
    <message>
        <source>Are you still there?</source>
        <translation>¿Sigues ahí?</translation>
    </message>
    <message>
        <source>%1 writes first</source>
        <translation>%1 escribe primero</translation>
    </message>
    <message>
        <source>Good morning!</source>
        <translation>¡Buenos días!</translation>
    </message>
    <message>
        <source>You write to %1</source>
        <translation>Usted escribe a %1</translation>
    </message>
    <message>
        <source>On my way</source>
        <translation>De camino</translation>
    </message>
    <message>
        <source>%1 sends an alert</source>
        <translation>%1 envía un aviso</translation>
    </message>
    <message>
        <source>You got an alert</source>
        <translation>Ha recibido un aviso</translation>
    </message>
    <message>
        <source>You send %1 an alert</source>
        <translation>Usted envía un aviso a %1</translation>
    </message>
    <message>
        <source>You sent an alert</source>
        <translation>Ha enviado un aviso</translation>
    </message>
    <message>
        <source>E-mail waits</source>
        <translation>Hay correo</translation>
    </message>
    <message>
        <source>New e-mail</source>
        <translation>Correo nuevo</translation>
    </message>
    <message>
        <source>3 unread messages</source>
        <translation>3 mensajes sin leer</translation>
    </message>
    <message>
        <source>The program has news</source>
        <translation>El programa tiene noticias</translation>
    </message>
    <message>
        <source>Information</source>
        <translation>Información</translation>
    </message>
    <message>
        <source>A file was saved</source>
        <translation>Se guardó un archivo</translation>
    </message>
    <message>
        <source>The program fails</source>
        <translation>El programa falla</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Error</translation>
    </message>
    <message>
        <source>A file could not be saved</source>
        <translation>No se pudo guardar un archivo</translation>
    </message>
    <message>
        <source>Your account logs in</source>
        <translation>Su cuenta se conecta</translation>
    </message>
    <message>
        <source>Logged in</source>
        <translation>Conectado</translation>
    </message>
    <message>
        <source>Your account is connected</source>
        <translation>Su cuenta está conectada</translation>
    </message>
    <message>
        <source>%1 comes online</source>
        <translation>%1 se conecta</translation>
    </message>
    <message>
        <source>is available</source>
        <translation>está disponible</translation>
    </message>
    <message>
        <source>%1 goes away</source>
        <translation>%1 se ausenta</translation>
    </message>
    <message>
        <source>is away</source>
        <translation>está ausente</translation>
    </message>
    <message>
        <source>%1 goes offline</source>
        <translation>%1 se desconecta</translation>
    </message>
    <message>
        <source>is not available</source>
        <translation>no está disponible</translation>
    </message>
    <message>
        <source>%1 changes status</source>
        <translation>%1 cambia de estado</translation>
    </message>
    <message>
        <source>back in ten minutes</source>
        <translation>de vuelta en diez minutos</translation>
    </message>
    <message>
        <source>%1 starts typing</source>
        <translation>%1 empieza a escribir</translation>
    </message>
    <message>
        <source>is typing</source>
        <translation>está escribiendo</translation>
    </message>
    <message>
        <source>%1 stops typing</source>
        <translation>%1 deja de escribir</translation>
    </message>
    <message>
        <source>stopped typing</source>
        <translation>ha dejado de escribir</translation>
    </message>
    <message>
        <source>%1 writes in a conference</source>
        <translation>%1 escribe en una conferencia</translation>
    </message>
    <message>
        <source>Hello everybody</source>
        <translation>Hola a todos</translation>
    </message>
    <message>
        <source>%1 writes in a background conference</source>
        <translation>%1 escribe en una conferencia en segundo plano</translation>
    </message>
    <message>
        <source>Who takes the minutes?</source>
        <translation>¿Quién levanta acta?</translation>
    </message>
    <message>
        <source>Verdict</source>
        <translation>Veredicto</translation>
    </message>
    <message>
        <source>A program and its arguments. %t is the title, %m the message, %B the contact; the program also finds them in its environment, as ZEPA_TITLE, ZEPA_TEXT and ZEPA_BUDDY_NAME. Use quotes to group words. The command does not run in a shell.</source>
        <translation>Un programa y sus argumentos. %t es el título, %m el mensaje, %B el contacto; el programa los encuentra también en su entorno, como ZEPA_TITLE, ZEPA_TEXT y ZEPA_BUDDY_NAME. Las comillas agrupan palabras. La orden no se ejecuta en una shell.</translation>
    </message>
    <message>
        <source>&quot;$%1&quot; instead of %2</source>
        <translation>&quot;$%1&quot; en lugar de %2</translation>
    </message>
    <message>
        <source>Unsafe: anyone who sends a message could make the shell run commands. Use environment variables in double quotes: %1.</source>
        <translation>Inseguro: quien envíe un mensaje podría hacer que la shell ejecute órdenes. Use variables de entorno entre comillas dobles: %1.</translation>
    </message>
    <message>
        <source>The stored rules for these types are damaged and were left as they are, because %2 already holds %3 files. Move those files elsewhere and restart Zepa. Types: %1</source>
        <translation>Las reglas guardadas de estos tipos están dañadas y se dejaron como están, porque %2 ya contiene %3 archivos. Mueva esos archivos a otro lugar y reinicie Zepa. Tipos: %1</translation>
    </message>
    <message>
        <source>These types have no rules, because their rule files in %2 cannot be read or are not regular files: %1</source>
        <translation>Estos tipos no tienen reglas, porque sus archivos de reglas en %2 no se pueden leer o no son archivos normales: %1</translation>
    </message>
    <message>
        <source>The rules for these types cannot be changed and are not backed up, because their files in %2 are larger than 4 MiB: %1</source>
        <translation>Las reglas de estos tipos no se pueden cambiar y no tienen copia de seguridad, porque sus archivos en %2 superan los 4 MiB: %1</translation>
    </message>
    <message>
        <source>The rules for %1 were not changed: another program is changing rules in the same folder. Try again.</source>
        <translation>Las reglas de %1 no se cambiaron: otro programa está cambiando reglas en la misma carpeta. Inténtelo de nuevo.</translation>
    </message>
</context>
<context>
    <name>zepa::ChatHistory</name>
    <message>
        <source>Information:</source>
        <translation>Información:</translation>
    </message>
</context>
<context>
    <name>zepa::ChatWindow</name>
    <message>
        <source>&amp;Send</source>
        <translation>&amp;Enviar</translation>
    </message>
    <message>
        <source>Write a message</source>
        <translation>Escribir un mensaje</translation>
    </message>
    <message>
        <source>Conversation with %1</source>
        <translation>Conversación con %1</translation>
    </message>
    <message>
        <source>Message to %1</source>
        <translation>Mensaje para %1</translation>
    </message>
    <message>
        <source>You</source>
        <translation>Usted</translation>
    </message>
</context>
<context>
    <name>zepa::ContactModel</name>
    <message>
        <source>stranger</source>
        <translation>desconocido</translation>
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
        <translation>Contactos</translation>
    </message>
    <message>
        <source>C&amp;ontacts</source>
        <translation>C&amp;ontactos</translation>
    </message>
    <message>
        <source>Open the &amp;chat</source>
        <translation>Abrir el &amp;chat</translation>
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
        <translation>De %1 a %2.</translation>
    </message>
</context>
<context>
    <name>zepa::JournalText</name>
    <message>
        <source>It was dropped as a repeat of a posting that the journal does not hold any more. Repeats are dropped for %1 s (setting &quot;duplicated_notifications_time&quot;).</source>
        <translation>Se omitió por ser la repetición de un envío que el registro ya no contiene. Las repeticiones se omiten durante %1 s (ajuste &quot;duplicated_notifications_time&quot;).</translation>
    </message>
    <message>
        <source>It was dropped as a repeat: the same type and title was posted at %1. Times of day are compared without their dates, so it stays a repeat until that time has come again.</source>
        <translation>Se omitió por repetido: el mismo tipo con el mismo título se envió a las %1. Las horas se comparan sin su fecha, así que sigue siendo una repetición hasta que vuelva esa hora.</translation>
    </message>
    <message>
        <source>It was dropped as a repeat: the same type and title was posted %1 s ago, and repeats are dropped for %2 s (setting &quot;duplicated_notifications_time&quot;).</source>
        <translation>Se omitió por repetido: el mismo tipo con el mismo título se envió hace %1 s, y las repeticiones se omiten durante %2 s (ajuste &quot;duplicated_notifications_time&quot;).</translation>
    </message>
    <message>
        <source>That was type %1 with title &quot;%2&quot;: type and title written in one count as the same.</source>
        <translation>Era el tipo %1 con el título &quot;%2&quot;: el tipo y el título escritos seguidos cuentan como iguales.</translation>
    </message>
    <message>
        <source>No sound: no rule of this type calls the sound method.</source>
        <translation>Sin sonido: ninguna regla de este tipo llama al método de sonido.</translation>
    </message>
    <message>
        <source>No sound: the sender is not on the contact list (setting &quot;alerts&quot;: buddies_only).</source>
        <translation>Sin sonido: el remitente no está en la lista de contactos (ajuste &quot;alerts&quot;: buddies_only).</translation>
    </message>
    <message>
        <source>No sound: the rule&apos;s sound file is not there.</source>
        <translation>Sin sonido: el archivo de sonido de la regla no está.</translation>
    </message>
    <message>
        <source>The sound method was called, and its file handed to the sound player.</source>
        <translation>Se llamó al método de sonido y su archivo se entregó al reproductor.</translation>
    </message>
    <message>
        <source>No line in a chat: no rule of this type calls the chat window method.</source>
        <translation>Ninguna línea en un chat: ninguna regla de este tipo llama al método de la ventana de chat.</translation>
    </message>
    <message>
        <source>No line in a chat: the posting is not about anybody.</source>
        <translation>Ninguna línea en un chat: el envío no trata de nadie.</translation>
    </message>
    <message>
        <source>No line in a chat: the chat window of %1 is not open.</source>
        <translation>Ninguna línea en un chat: la ventana de chat de %1 no está abierta.</translation>
    </message>
    <message>
        <source>A line was written into the chat window of %1.</source>
        <translation>Se escribió una línea en la ventana de chat de %1.</translation>
    </message>
    <message>
        <source>pop-up</source>
        <translation>aviso emergente</translation>
    </message>
    <message>
        <source>pop-up waits</source>
        <translation>aviso en espera</translation>
    </message>
    <message>
        <source>clicked</source>
        <translation>pulsado</translation>
    </message>
    <message>
        <source>timed out</source>
        <translation>caducado</translation>
    </message>
    <message>
        <source>repeat</source>
        <translation>repetición</translation>
    </message>
    <message>
        <source>no rule</source>
        <translation>sin regla</translation>
    </message>
    <message>
        <source>no rule for a pop-up</source>
        <translation>sin regla de aviso emergente</translation>
    </message>
    <message>
        <source>no session bus</source>
        <translation>sin bus de sesión</translation>
    </message>
    <message>
        <source>no notification service</source>
        <translation>sin servicio de notificaciones</translation>
    </message>
    <message>
        <source>not registered</source>
        <translation>no registrado</translation>
    </message>
    <message>
        <source>unknown type</source>
        <translation>tipo desconocido</translation>
    </message>
    <message>
        <source>A pop-up was handed to the notification service. It has no action, so nobody tells what became of it.</source>
        <translation>Se entregó un aviso emergente al servicio de notificaciones. No tiene acción, así que nadie dice qué fue de él.</translation>
    </message>
    <message>
        <source>A pop-up was handed to the notification service and waits for an answer.</source>
        <translation>Se entregó un aviso emergente al servicio de notificaciones y espera una respuesta.</translation>
    </message>
    <message>
        <source>It popped up and was clicked.</source>
        <translation>El aviso apareció y se pulsó.</translation>
    </message>
    <message>
        <source>A pop-up was handed to the notification service and ended without a click: its time was over, it was closed, or the service gave it up.</source>
        <translation>Se entregó un aviso emergente al servicio de notificaciones y terminó sin pulsarse: se acabó su tiempo, se cerró o el servicio lo abandonó.</translation>
    </message>
    <message>
        <source>The type &quot;%1&quot; has no rule, so no method was called.</source>
        <translation>El tipo &quot;%1&quot; no tiene reglas, así que no se llamó a ningún método.</translation>
    </message>
    <message>
        <source>No rule of the type &quot;%1&quot; calls the pop-up method; called was: %2.</source>
        <translation>Ninguna regla del tipo &quot;%1&quot; llama al método de avisos emergentes; se llamó a: %2.</translation>
    </message>
    <message>
        <source>The pop-up method was called, but there is no session bus, so no notification service.</source>
        <translation>Se llamó al método de avisos emergentes, pero no hay bus de sesión, así que tampoco servicio de notificaciones.</translation>
    </message>
    <message>
        <source>The pop-up method was called, but there is no notification service on the session bus.</source>
        <translation>Se llamó al método de avisos emergentes, pero no hay servicio de notificaciones en el bus de sesión.</translation>
    </message>
    <message>
        <source>The pop-up method was called, but the type &quot;%1&quot; is not registered with the notification service.</source>
        <translation>Se llamó al método de avisos emergentes, pero el tipo &quot;%1&quot; no está registrado en el servicio de notificaciones.</translation>
    </message>
    <message>
        <source>Nobody registered a notification type &quot;%1&quot;.</source>
        <translation>Nadie registró un tipo de notificación &quot;%1&quot;.</translation>
    </message>
    <message>
        <source>Why did this not pop up?</source>
        <translation>¿Por qué no hubo aviso emergente?</translation>
    </message>
    <message>
        <source>nobody</source>
        <translation>nadie</translation>
    </message>
    <message>
        <source>%1 (not on the contact list)</source>
        <translation>%1 (no está en la lista de contactos)</translation>
    </message>
    <message>
        <source>Posted: %1</source>
        <translation>Enviado: %1</translation>
    </message>
    <message>
        <source>Type: %1 (%2)</source>
        <translation>Tipo: %1 (%2)</translation>
    </message>
    <message>
        <source>Title: %1</source>
        <translation>Título: %1</translation>
    </message>
    <message>
        <source>Text: %1</source>
        <translation>Texto: %1</translation>
    </message>
    <message>
        <source>About: %1</source>
        <translation>Trata de: %1</translation>
    </message>
    <message>
        <source>Methods in the order of their calls (the newest rule comes first):</source>
        <translation>Métodos en el orden de sus llamadas (la regla más nueva va primero):</translation>
    </message>
    <message>
        <source>No sound: alert sounds are turned off (setting &quot;alerts&quot;: %1).</source>
        <translation>Sin sonido: los sonidos de los avisos están desactivados (ajuste &quot;alerts&quot;: %1).</translation>
    </message>
</context>
<context>
    <name>zepa::JournalView</name>
    <message>
        <source>Why did this not pop up?</source>
        <translation>¿Por qué no hubo aviso emergente?</translation>
    </message>
    <message>
        <source>The journal says here for each posting why it did not pop up.</source>
        <translation>El registro dice aquí, para cada envío, por qué no hubo aviso emergente.</translation>
    </message>
    <message>
        <source>Type, title, text, person</source>
        <translation>Tipo, título, texto, persona</translation>
    </message>
    <message>
        <source>&amp;Filter:</source>
        <translation>&amp;Filtro:</translation>
    </message>
    <message>
        <source>All verdicts</source>
        <translation>Todos los veredictos</translation>
    </message>
    <message>
        <source>Cop&amp;y</source>
        <translation>Cop&amp;iar</translation>
    </message>
    <message>
        <source>Puts the chosen lines onto the clipboard</source>
        <translation>Pone las líneas elegidas en el portapapeles</translation>
    </message>
    <message>
        <source>Journal</source>
        <translation>Registro</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <comment>event and verdict</comment>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>Verdict that is shown</source>
        <translation>Veredicto que se muestra</translation>
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
        <translation>&amp;Salir</translation>
    </message>
    <message>
        <source>&amp;Notification settings...</source>
        <translation>Ajustes de &amp;notificaciones...</translation>
    </message>
    <message>
        <source>&amp;Contact</source>
        <translation>&amp;Contacto</translation>
    </message>
    <message>
        <source>&amp;Journal</source>
        <translation>&amp;Registro</translation>
    </message>
    <message>
        <source>&amp;Copy the chosen lines</source>
        <translation>&amp;Copiar las líneas elegidas</translation>
    </message>
    <message>
        <source>Copy &amp;all lines</source>
        <translation>Copiar &amp;todas las líneas</translation>
    </message>
    <message>
        <source>C&amp;lear</source>
        <translation>&amp;Vaciar</translation>
    </message>
    <message>
        <source>Another program is changing rules in %1. Events will be announced as soon as it has finished.</source>
        <translation>Otro programa está cambiando reglas en %1. Los sucesos se anunciarán en cuanto termine.</translation>
    </message>
    <message>
        <source>Zepa cannot write to %1: your rules are in use as they are, and changes will not be saved.</source>
        <translation>Zepa no puede escribir en %1: sus reglas se aplican tal como están y los cambios no se guardarán.</translation>
    </message>
    <message>
        <source>Zepa cannot write to %1: the default rules are in use, and changes will not be saved.</source>
        <translation>Zepa no puede escribir en %1: se aplican las reglas predeterminadas y los cambios no se guardarán.</translation>
    </message>
    <message>
        <source>The settings file %1 cannot be read, so all settings have their defaults.</source>
        <translation>No se puede leer el archivo de ajustes %1, así que todos los ajustes tienen sus valores predeterminados.</translation>
    </message>
</context>
<context>
    <name>zepa::NoticeBar</name>
    <message>
        <source>&amp;Understood</source>
        <translation>Ente&amp;ndido</translation>
    </message>
</context>
<context>
    <name>zepa::NotificationSettings</name>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Deshacer</translation>
    </message>
    <message>
        <source>Red&amp;o</source>
        <translation>Re&amp;hacer</translation>
    </message>
    <message>
        <source>Space adds or removes a rule. Changes are stored at once.</source>
        <translation>La barra espaciadora añade o quita una regla. Los cambios se guardan al instante.</translation>
    </message>
    <message>
        <source>Events and methods</source>
        <translation>Sucesos y métodos</translation>
    </message>
    <message>
        <source>A check mark stands where an event uses a method. Space toggles it.</source>
        <translation>Una marca indica que un suceso usa un método. La barra espaciadora la pone o la quita.</translation>
    </message>
    <message>
        <source>For all events</source>
        <translation>Para todos los sucesos</translation>
    </message>
    <message>
        <source>Nothing to undo.</source>
        <translation>Nada que deshacer.</translation>
    </message>
    <message>
        <source>Last change: %1</source>
        <translation>Último cambio: %1</translation>
    </message>
</context>
<context>
    <name>zepa::ProblemBar</name>
    <message>
        <source>&amp;Try again</source>
        <translation>&amp;Reintentar</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Advertencia</translation>
    </message>
</context>
<context>
    <name>zepa::RuleEditor</name>
    <message>
        <source>Add: %1</source>
        <translation>Añadir: %1</translation>
    </message>
    <message>
        <source>Remove: %1</source>
        <translation>Quitar: %1</translation>
    </message>
    <message>
        <source>Change: %1, %2</source>
        <translation>Cambiar: %1, %2</translation>
    </message>
    <message>
        <source>Restore defaults: %1</source>
        <translation>Valores predeterminados: %1</translation>
    </message>
    <message>
        <source>Change: %1</source>
        <translation>Cambiar: %1</translation>
    </message>
    <message>
        <source>Undone: %1</source>
        <translation>Deshecho: %1</translation>
    </message>
    <message>
        <source>All rules are stored now.</source>
        <translation>Ahora todas las reglas están guardadas.</translation>
    </message>
    <message>
        <source>%1, %2</source>
        <translation>%1, %2</translation>
    </message>
    <message>
        <source>Redone: %1</source>
        <translation>Rehecho: %1</translation>
    </message>
    <message>
        <source>Rules or settings were changed outside this window.</source>
        <translation>Se cambiaron reglas o ajustes fuera de esta ventana.</translation>
    </message>
</context>
<context>
    <name>zepa::RulePane</name>
    <message>
        <source>Ru&amp;le:</source>
        <translation>Reg&amp;la:</translation>
    </message>
    <message>
        <source>&amp;Add a rule</source>
        <translation>&amp;Añadir una regla</translation>
    </message>
    <message>
        <source>Re&amp;move this rule</source>
        <translation>&amp;Quitar esta regla</translation>
    </message>
    <message>
        <source>Post a &amp;sample</source>
        <translation>Enviar una &amp;muestra</translation>
    </message>
    <message>
        <source>Restore &amp;defaults</source>
        <translation>&amp;Valores predeterminados</translation>
    </message>
    <message>
        <source>No event is chosen</source>
        <translation>Ningún suceso elegido</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <comment>event, method</comment>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>1 (newest)</source>
        <translation>1 (la más nueva)</translation>
    </message>
    <message>
        <source>&amp;Add another rule</source>
        <translation>&amp;Añadir otra regla</translation>
    </message>
    <message>
        <source>Choose an event in the table.</source>
        <translation>Elija un suceso en la tabla.</translation>
    </message>
    <message>
        <source>Choose the column of a method to see its rule.</source>
        <translation>Elija la columna de un método para ver su regla.</translation>
    </message>
    <message>
        <source>There is no rule, so this event does not use this method.</source>
        <translation>No hay regla, así que este suceso no usa este método.</translation>
    </message>
    <message>
        <source>This method has no settings.</source>
        <translation>Este método no tiene ajustes.</translation>
    </message>
    <message>
        <source>All %1 rules act, the newest first. Space in the table and the command line reach the newest one. The next start of the program turns their order round.</source>
        <translation>Las %1 reglas actúan todas, la más nueva primero. La barra espaciadora en la tabla y la línea de órdenes alcanzan la más nueva. El próximo inicio del programa invierte su orden.</translation>
    </message>
    <message>
        <source>Triggers a test event so you can see and hear the result.</source>
        <translation>Provoca un suceso de prueba, para ver y oír el resultado.</translation>
    </message>
    <message>
        <source>Resets all notifications for this event to the defaults.</source>
        <translation>Restablece los valores predeterminados de todas las notificaciones de este suceso.</translation>
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
        <translation>La barra espaciadora añade una regla.</translation>
    </message>
    <message>
        <source>Space removes the newest rule.</source>
        <translation>La barra espaciadora quita la regla más nueva.</translation>
    </message>
    <message>
        <source>Meaning</source>
        <translation>Significado</translation>
    </message>
    <message>
        <source>%1
Identifier: %2</source>
        <translation>%1
Identificador: %2</translation>
    </message>
    <message>
        <source>%1
Add-on method. Identifier: %2</source>
        <translation>%1
Método adicional. Identificador: %2</translation>
    </message>
</context>
<context>
    <name>zepa::SettingsDialog</name>
    <message>
        <source>Notification settings</source>
        <translation>Ajustes de notificaciones</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>&amp;Cerrar</translation>
    </message>
</context>
<context>
    <name>zepa::Simulator</name>
    <message>
        <source>Simulator</source>
        <translation>Simulador</translation>
    </message>
    <message>
        <source>With an &amp;action for a click</source>
        <translation>Con una &amp;acción para un clic</translation>
    </message>
    <message>
        <source>A sample text</source>
        <translation>Un texto de muestra</translation>
    </message>
    <message>
        <source>A click on the pop-up opens the chat. Only a pop-up with an action tells whether it was clicked; only one without can be sticky.</source>
        <translation>Un clic en el aviso emergente abre el chat. Solo un aviso con acción dice si se hizo clic; solo uno sin ella puede ser permanente.</translation>
    </message>
    <message>
        <source>&amp;Post</source>
        <translation>&amp;Enviar</translation>
    </message>
    <message>
        <source>&amp;Event:</source>
        <translation>&amp;Suceso:</translation>
    </message>
    <message>
        <source>&amp;Text:</source>
        <translation>&amp;Texto:</translation>
    </message>
    <message>
        <source>Event to simulate</source>
        <translation>Suceso que simular</translation>
    </message>
</context>
<context>
    <name>zepa::SoundEdit</name>
    <message>
        <source>&amp;Play</source>
        <translation>Re&amp;producir</translation>
    </message>
    <message>
        <source>Play the sound</source>
        <translation>Reproducir el sonido</translation>
    </message>
    <message>
        <source>C&amp;hoose...</source>
        <translation>&amp;Elegir...</translation>
    </message>
    <message>
        <source>Choose a sound file</source>
        <translation>Elegir un archivo de sonido</translation>
    </message>
    <message>
        <source>Choose a sound</source>
        <translation>Elegir un sonido</translation>
    </message>
    <message>
        <source>Sounds (%1)</source>
        <translation>Sonidos (%1)</translation>
    </message>
    <message>
        <source>%1 cannot be played, so it was not taken.</source>
        <translation>%1 no se puede reproducir, así que no se ha tomado.</translation>
    </message>
    <message>
        <source>This file cannot be played.</source>
        <translation>Este archivo no se puede reproducir.</translation>
    </message>
</context>
<context>
    <name>zepa::StorageStatus</name>
    <message>
        <source>The rules of “%1” were not changed: the file %2 cannot be written, or there is no room on the disk for the copy that protects it.</source>
        <translation>Las reglas de «%1» no se cambiaron: no se puede escribir el archivo %2, o no hay sitio en el disco para la copia que lo protege.</translation>
    </message>
    <message>
        <source>The rules of “%1” are stored, but there is no room on the disk for the copy that protects them. Make room before you change more.</source>
        <translation>Las reglas de «%1» están guardadas, pero no hay sitio en el disco para la copia que las protege. Haga sitio antes de cambiar más.</translation>
    </message>
    <message>
        <source>The setting “%1” cannot be written, so it was not changed. The file is %2.</source>
        <translation>El ajuste «%1» no se puede escribir, así que no se cambió. El archivo es %2.</translation>
    </message>
    <message>
        <source>These events have rules that could not be written to %2, perhaps because the disk is full. They are in use until the client ends: %1.</source>
        <translation>Estos sucesos tienen reglas que no se pudieron escribir en %2, quizá porque el disco está lleno. Valen hasta que termine el programa: %1.</translation>
    </message>
    <message>
        <source>, </source>
        <translation>, </translation>
    </message>
    <message>
        <source>The rules were not changed: another program is changing rules in %1. Try again when it has finished.</source>
        <translation>Las reglas no se cambiaron: otro programa está cambiando reglas en %1. Inténtelo de nuevo cuando haya terminado.</translation>
    </message>
    <message>
        <source>The setting was not changed: another program is changing %1. Try again when it has finished.</source>
        <translation>El ajuste no se cambió: otro programa está cambiando %1. Inténtelo de nuevo cuando haya terminado.</translation>
    </message>
</context>
</TS>
