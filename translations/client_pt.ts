<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="pt_BR" sourcelanguage="en">
<context>
    <name>presence</name>
    <message>
        <source>available</source>
        <translation>disponível</translation>
    </message>
    <message>
        <source>away</source>
        <translation>ausente</translation>
    </message>
    <message>
        <source>not available</source>
        <translation>indisponível</translation>
    </message>
</context>
<context>
    <name>settings</name>
    <message>
        <source>Drop repeats for</source>
        <translation>Ignorar repetições durante</translation>
    </message>
    <message>
        <source>The same event with the same title is announced once in this time.</source>
        <translation>O mesmo evento com o mesmo título é anunciado uma vez neste tempo.</translation>
    </message>
    <message>
        <source> s</source>
        <translation> s</translation>
    </message>
    <message>
        <source>Alert sounds</source>
        <translation>Sons dos alertas</translation>
    </message>
    <message>
        <source>Mute</source>
        <translation>Silêncio</translation>
    </message>
    <message>
        <source>Notify always</source>
        <translation>Avisar sempre</translation>
    </message>
    <message>
        <source>Notify from buddies only</source>
        <translation>Avisar só de contactos</translation>
    </message>
    <message>
        <source>Whose alerts make a sound.</source>
        <translation>De quem os alertas soam.</translation>
    </message>
    <message>
        <source>Pictures</source>
        <translation>Imagens</translation>
    </message>
    <message>
        <source>Contact list pictures</source>
        <translation>Imagens da lista de contactos</translation>
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
        <translation>Mostrar</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Sair</translation>
    </message>
</context>
<context>
    <name>zepa</name>
    <message>
        <source>Command</source>
        <translation>Comando</translation>
    </message>
    <message>
        <source>run a command</source>
        <translation>executar um comando</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Ficheiro</translation>
    </message>
    <message>
        <source>A name without a folder is a file in ~/.local/state/zepa.</source>
        <translation>Um nome sem pasta é um ficheiro em ~/.local/state/zepa.</translation>
    </message>
    <message>
        <source>Largest size</source>
        <translation>Tamanho máximo</translation>
    </message>
    <message>
        <source>When it is reached, a new file begins.</source>
        <translation>Quando é atingido, começa um novo ficheiro.</translation>
    </message>
    <message>
        <source> KB</source>
        <translation> KB</translation>
    </message>
    <message>
        <source>Older files kept</source>
        <translation>Ficheiros antigos guardados</translation>
    </message>
    <message>
        <source>They have .1, .2 and so on behind their names.</source>
        <translation>Têm .1, .2 e assim por diante no fim dos nomes.</translation>
    </message>
    <message>
        <source>write to a file</source>
        <translation>escrever num ficheiro</translation>
    </message>
    <message>
        <source>Read out</source>
        <translation>Ler</translation>
    </message>
    <message>
        <source>Title and text</source>
        <translation>Título e texto</translation>
    </message>
    <message>
        <source>Title only</source>
        <translation>Só o título</translation>
    </message>
    <message>
        <source>Text only</source>
        <translation>Só o texto</translation>
    </message>
    <message>
        <source>Voice</source>
        <translation>Voz</translation>
    </message>
    <message>
        <source>A voice of espeak-ng, for example de or en-us. Empty: its own choice.</source>
        <translation>Uma voz do espeak-ng, por exemplo de ou en-us. Vazio: a escolha dele.</translation>
    </message>
    <message>
        <source>Speed</source>
        <translation>Velocidade</translation>
    </message>
    <message>
        <source> words a minute</source>
        <translation> palavras por minuto</translation>
    </message>
    <message>
        <source>read out</source>
        <translation>ler em voz alta</translation>
    </message>
    <message>
        <source>Pop-up</source>
        <translation>Aviso</translation>
    </message>
    <message>
        <source>Sound</source>
        <translation>Som</translation>
    </message>
    <message>
        <source>Line in the chat</source>
        <translation>Linha na conversa</translation>
    </message>
    <message>
        <source>Attention</source>
        <translation>Atenção</translation>
    </message>
    <message>
        <source>The stored rules for these types were damaged, as a crash or a full disk leaves them, and are back as they were last: %1</source>
        <translation>As regras guardadas destes tipos estavam danificadas, como as deixa uma falha ou um disco cheio, e estão de novo como da última vez: %1</translation>
    </message>
    <message>
        <source>The stored rules for these types were damaged, and there was no good copy. They have their defaults now; the damaged files are in %2. Types: %1</source>
        <translation>As regras guardadas destes tipos estavam danificadas e não havia cópia boa. Têm agora as suas predefinições; os ficheiros danificados estão em %2. Tipos: %1</translation>
    </message>
    <message>
        <source>The stored rules for these types are damaged and cannot be mended; the files are in %2. Types: %1</source>
        <translation>As regras guardadas destes tipos estão danificadas e não têm conserto; os ficheiros estão em %2. Tipos: %1</translation>
    </message>
    <message>
        <source>The rules for %1 are stored, but there is no room for the copy that protects them; nothing more can be changed before there is.</source>
        <translation>As regras de %1 estão guardadas, mas não há espaço para a cópia que as protege; até lá nada mais pode ser alterado.</translation>
    </message>
    <message>
        <source>The change to the rules for %1 could not be stored, perhaps because the disk is full. It holds until the program ends.</source>
        <translation>A alteração das regras de %1 não pôde ser guardada, talvez porque o disco está cheio. Vale até o programa terminar.</translation>
    </message>
    <message>
        <source>The rules for %1 were not changed: the file cannot be written, or there is no room for the copy that protects it.</source>
        <translation>As regras de %1 não foram alteradas: o ficheiro não pode ser escrito, ou não há espaço para a cópia que o protege.</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Hora</translation>
    </message>
    <message>
        <source>Event</source>
        <translation>Evento</translation>
    </message>
    <message>
        <source>Title</source>
        <translation>Título</translation>
    </message>
    <message>
        <source>About</source>
        <translation>Pessoa</translation>
    </message>
    <message>
        <source>Methods called</source>
        <translation>Métodos chamados</translation>
    </message>
    <message>
        <source>on</source>
        <translation>sim</translation>
    </message>
    <message>
        <source>off</source>
        <translation>não</translation>
    </message>
    <message>
        <source>no rule</source>
        <translation>sem regra</translation>
    </message>
    <message>
        <source>one rule</source>
        <translation>uma regra</translation>
    </message>
    <message>
        <source>%1 rules</source>
        <translation>%1 regras</translation>
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
        <translation>%1 (amostra %2)</translation>
    </message>
    <message>
        <source>Ann: Shall we have lunch at noon?</source>
        <translation>Ana: Almoçamos ao meio-dia?</translation>
    </message>
    <message>
        <source>Ann</source>
        <translation>Ana</translation>
    </message>
    <message>
        <source>No notification service is there to show the pop-up.</source>
        <translation>Não há serviço de notificações para mostrar o aviso.</translation>
    </message>
    <message>
        <source>The notification service does not know this event yet.</source>
        <translation>O serviço de notificações ainda não conhece este evento.</translation>
    </message>
    <message>
        <source>The setting for alert sounds keeps it silent.</source>
        <translation>A definição de sons dos alertas mantém-no em silêncio.</translation>
    </message>
    <message>
        <source>The sound file is not there.</source>
        <translation>O ficheiro de som não está lá.</translation>
    </message>
    <message>
        <source>No chat with Ann is open to write a line in.</source>
        <translation>Não há conversa com Ana aberta onde escrever uma linha.</translation>
    </message>
    <message>
        <source>Sample %1: there is no rule for “%2”, so nothing happens.</source>
        <translation>Amostra %1: não há regra para «%2», por isso nada acontece.</translation>
    </message>
    <message>
        <source>Sample %1 was dropped as a repeat.</source>
        <translation>A amostra %1 foi ignorada por ser repetida.</translation>
    </message>
    <message>
        <source>Sample %1 went to: %2.</source>
        <translation>A amostra %1 foi para: %2.</translation>
    </message>
    <message>
        <source>%1 writes</source>
        <translation>%1 escreve</translation>
    </message>
    <message>
        <source>Lunch at noon?</source>
        <translation>Almoço ao meio-dia?</translation>
    </message>
    <message>
        <source>%1 writes in a background chat</source>
        <translation>%1 escreve numa conversa em segundo plano</translation>
    </message>
    <message>
        <source>Are you still there?</source>
        <translation>Ainda estás aí?</translation>
    </message>
    <message>
        <source>%1 writes first</source>
        <translation>%1 escreve primeiro</translation>
    </message>
    <message>
        <source>Good morning!</source>
        <translation>Bom dia!</translation>
    </message>
    <message>
        <source>You write to %1</source>
        <translation>Escreve a %1</translation>
    </message>
    <message>
        <source>On my way</source>
        <translation>A caminho</translation>
    </message>
    <message>
        <source>%1 sends an alert</source>
        <translation>%1 envia um alerta</translation>
    </message>
    <message>
        <source>You got an alert</source>
        <translation>Recebeu um alerta</translation>
    </message>
    <message>
        <source>You send %1 an alert</source>
        <translation>Envia um alerta a %1</translation>
    </message>
    <message>
        <source>You sent an alert</source>
        <translation>Enviou um alerta</translation>
    </message>
    <message>
        <source>E-mail waits</source>
        <translation>Há correio à espera</translation>
    </message>
    <message>
        <source>New e-mail</source>
        <translation>Novo e-mail</translation>
    </message>
    <message>
        <source>3 unread messages</source>
        <translation>3 mensagens por ler</translation>
    </message>
    <message>
        <source>The program has news</source>
        <translation>O programa tem novidades</translation>
    </message>
    <message>
        <source>Information</source>
        <translation>Informação</translation>
    </message>
    <message>
        <source>A file was saved</source>
        <translation>Um ficheiro foi guardado</translation>
    </message>
    <message>
        <source>The program fails</source>
        <translation>O programa falha</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Erro</translation>
    </message>
    <message>
        <source>A file could not be saved</source>
        <translation>Não foi possível guardar um ficheiro</translation>
    </message>
    <message>
        <source>Your account logs in</source>
        <translation>A sua conta liga-se</translation>
    </message>
    <message>
        <source>Logged in</source>
        <translation>Ligado</translation>
    </message>
    <message>
        <source>Your account is connected</source>
        <translation>A sua conta está ligada</translation>
    </message>
    <message>
        <source>%1 comes online</source>
        <translation>%1 liga-se</translation>
    </message>
    <message>
        <source>is available</source>
        <translation>está disponível</translation>
    </message>
    <message>
        <source>%1 goes away</source>
        <translation>%1 ausenta-se</translation>
    </message>
    <message>
        <source>is away</source>
        <translation>está ausente</translation>
    </message>
    <message>
        <source>%1 goes offline</source>
        <translation>%1 desliga-se</translation>
    </message>
    <message>
        <source>is not available</source>
        <translation>não está disponível</translation>
    </message>
    <message>
        <source>%1 changes status</source>
        <translation>%1 muda de estado</translation>
    </message>
    <message>
        <source>back in ten minutes</source>
        <translation>de volta em dez minutos</translation>
    </message>
    <message>
        <source>%1 starts typing</source>
        <translation>%1 começa a escrever</translation>
    </message>
    <message>
        <source>is typing</source>
        <translation>está a escrever</translation>
    </message>
    <message>
        <source>%1 stops typing</source>
        <translation>%1 para de escrever</translation>
    </message>
    <message>
        <source>stopped typing</source>
        <translation>parou de escrever</translation>
    </message>
    <message>
        <source>%1 writes in a conference</source>
        <translation>%1 escreve numa conferência</translation>
    </message>
    <message>
        <source>Hello everybody</source>
        <translation>Olá a todos</translation>
    </message>
    <message>
        <source>%1 writes in a background conference</source>
        <translation>%1 escreve numa conferência em segundo plano</translation>
    </message>
    <message>
        <source>Who takes the minutes?</source>
        <translation>Quem faz a ata?</translation>
    </message>
    <message>
        <source>Verdict</source>
        <translation>Veredicto</translation>
    </message>
    <message>
        <source>A program and its arguments. %t is the title, %m the message, %B the contact; the program also finds them in its environment, as ZEPA_TITLE, ZEPA_TEXT and ZEPA_BUDDY_NAME. Use quotes to group words. The command does not run in a shell.</source>
        <translation>Um programa e os seus argumentos. %t é o título, %m a mensagem, %B o contacto; o programa encontra-os também no seu ambiente, como ZEPA_TITLE, ZEPA_TEXT e ZEPA_BUDDY_NAME. As aspas agrupam palavras. O comando não é executado numa shell.</translation>
    </message>
    <message>
        <source>&quot;$%1&quot; instead of %2</source>
        <translation>&quot;$%1&quot; em vez de %2</translation>
    </message>
    <message>
        <source>Unsafe: anyone who sends a message could make the shell run commands. Use environment variables in double quotes: %1.</source>
        <translation>Inseguro: quem enviar uma mensagem poderia fazer a shell executar comandos. Use variáveis de ambiente entre aspas duplas: %1.</translation>
    </message>
    <message>
        <source>The stored rules for these types are damaged and were left as they are, because %2 already holds %3 files. Move those files elsewhere and restart Zepa. Types: %1</source>
        <translation>As regras guardadas destes tipos estão danificadas e foram deixadas como estão, porque %2 já contém %3 ficheiros. Mova esses ficheiros para outro local e reinicie o Zepa. Tipos: %1</translation>
    </message>
    <message>
        <source>These types have no rules, because their rule files in %2 cannot be read or are not regular files: %1</source>
        <translation>Estes tipos não têm regras, porque os seus ficheiros de regras em %2 não podem ser lidos ou não são ficheiros normais: %1</translation>
    </message>
    <message>
        <source>The rules for these types cannot be changed and are not backed up, because their files in %2 are larger than 4 MiB: %1</source>
        <translation>As regras destes tipos não podem ser alteradas e não têm cópia de segurança, porque os seus ficheiros em %2 excedem 4 MiB: %1</translation>
    </message>
    <message>
        <source>The rules for %1 were not changed: another program is changing rules in the same folder. Try again.</source>
        <translation>As regras de %1 não foram alteradas: outro programa está a alterar regras na mesma pasta. Tente de novo.</translation>
    </message>
</context>
<context>
    <name>zepa::ChatHistory</name>
    <message>
        <source>Information:</source>
        <translation>Informação:</translation>
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
        <translation>Escrever uma mensagem</translation>
    </message>
    <message>
        <source>Conversation with %1</source>
        <translation>Conversa com %1</translation>
    </message>
    <message>
        <source>Message to %1</source>
        <translation>Mensagem para %1</translation>
    </message>
    <message>
        <source>You</source>
        <translation>Você</translation>
    </message>
</context>
<context>
    <name>zepa::ContactModel</name>
    <message>
        <source>stranger</source>
        <translation>desconhecido</translation>
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
        <translation>Abrir a &amp;conversa</translation>
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
        <translation>Foi ignorado por repetir um envio que o registo já não contém. As repetições são ignoradas durante %1 s (definição &quot;duplicated_notifications_time&quot;).</translation>
    </message>
    <message>
        <source>It was dropped as a repeat: the same type and title was posted at %1. Times of day are compared without their dates, so it stays a repeat until that time has come again.</source>
        <translation>Foi ignorado por ser repetido: o mesmo tipo com o mesmo título foi enviado às %1. As horas são comparadas sem a data, por isso continua a ser uma repetição até essa hora voltar.</translation>
    </message>
    <message>
        <source>It was dropped as a repeat: the same type and title was posted %1 s ago, and repeats are dropped for %2 s (setting &quot;duplicated_notifications_time&quot;).</source>
        <translation>Foi ignorado por ser repetido: o mesmo tipo com o mesmo título foi enviado há %1 s, e as repetições são ignoradas durante %2 s (definição &quot;duplicated_notifications_time&quot;).</translation>
    </message>
    <message>
        <source>That was type %1 with title &quot;%2&quot;: type and title written in one count as the same.</source>
        <translation>Era o tipo %1 com o título &quot;%2&quot;: o tipo e o título escritos seguidos contam como iguais.</translation>
    </message>
    <message>
        <source>No sound: no rule of this type calls the sound method.</source>
        <translation>Sem som: nenhuma regra deste tipo chama o método de som.</translation>
    </message>
    <message>
        <source>No sound: the sender is not on the contact list (setting &quot;alerts&quot;: buddies_only).</source>
        <translation>Sem som: o remetente não está na lista de contactos (definição &quot;alerts&quot;: buddies_only).</translation>
    </message>
    <message>
        <source>No sound: the rule&apos;s sound file is not there.</source>
        <translation>Sem som: o ficheiro de som da regra não está lá.</translation>
    </message>
    <message>
        <source>The sound method was called, and its file handed to the sound player.</source>
        <translation>O método de som foi chamado e o seu ficheiro entregue ao leitor.</translation>
    </message>
    <message>
        <source>No line in a chat: no rule of this type calls the chat window method.</source>
        <translation>Nenhuma linha numa conversa: nenhuma regra deste tipo chama o método da janela de conversa.</translation>
    </message>
    <message>
        <source>No line in a chat: the posting is not about anybody.</source>
        <translation>Nenhuma linha numa conversa: o envio não diz respeito a ninguém.</translation>
    </message>
    <message>
        <source>No line in a chat: the chat window of %1 is not open.</source>
        <translation>Nenhuma linha numa conversa: a janela de conversa de %1 não está aberta.</translation>
    </message>
    <message>
        <source>A line was written into the chat window of %1.</source>
        <translation>Foi escrita uma linha na janela de conversa de %1.</translation>
    </message>
    <message>
        <source>pop-up</source>
        <translation>aviso</translation>
    </message>
    <message>
        <source>pop-up waits</source>
        <translation>aviso em espera</translation>
    </message>
    <message>
        <source>clicked</source>
        <translation>clicado</translation>
    </message>
    <message>
        <source>timed out</source>
        <translation>expirado</translation>
    </message>
    <message>
        <source>repeat</source>
        <translation>repetição</translation>
    </message>
    <message>
        <source>no rule</source>
        <translation>sem regra</translation>
    </message>
    <message>
        <source>no rule for a pop-up</source>
        <translation>sem regra para aviso</translation>
    </message>
    <message>
        <source>no session bus</source>
        <translation>sem barramento de sessão</translation>
    </message>
    <message>
        <source>no notification service</source>
        <translation>sem serviço de notificações</translation>
    </message>
    <message>
        <source>not registered</source>
        <translation>não registado</translation>
    </message>
    <message>
        <source>unknown type</source>
        <translation>tipo desconhecido</translation>
    </message>
    <message>
        <source>A pop-up was handed to the notification service. It has no action, so nobody tells what became of it.</source>
        <translation>Foi entregue um aviso ao serviço de notificações. Não tem ação, por isso ninguém diz o que lhe aconteceu.</translation>
    </message>
    <message>
        <source>A pop-up was handed to the notification service and waits for an answer.</source>
        <translation>Foi entregue um aviso ao serviço de notificações e espera uma resposta.</translation>
    </message>
    <message>
        <source>It popped up and was clicked.</source>
        <translation>O aviso apareceu e foi clicado.</translation>
    </message>
    <message>
        <source>A pop-up was handed to the notification service and ended without a click: its time was over, it was closed, or the service gave it up.</source>
        <translation>Foi entregue um aviso ao serviço de notificações e terminou sem clique: o seu tempo acabou, foi fechado ou o serviço desistiu dele.</translation>
    </message>
    <message>
        <source>The type &quot;%1&quot; has no rule, so no method was called.</source>
        <translation>O tipo &quot;%1&quot; não tem regras, por isso nenhum método foi chamado.</translation>
    </message>
    <message>
        <source>No rule of the type &quot;%1&quot; calls the pop-up method; called was: %2.</source>
        <translation>Nenhuma regra do tipo &quot;%1&quot; chama o método de avisos; foi chamado: %2.</translation>
    </message>
    <message>
        <source>The pop-up method was called, but there is no session bus, so no notification service.</source>
        <translation>O método de avisos foi chamado, mas não há barramento de sessão, logo não há serviço de notificações.</translation>
    </message>
    <message>
        <source>The pop-up method was called, but there is no notification service on the session bus.</source>
        <translation>O método de avisos foi chamado, mas não há serviço de notificações no barramento de sessão.</translation>
    </message>
    <message>
        <source>The pop-up method was called, but the type &quot;%1&quot; is not registered with the notification service.</source>
        <translation>O método de avisos foi chamado, mas o tipo &quot;%1&quot; não está registado no serviço de notificações.</translation>
    </message>
    <message>
        <source>Nobody registered a notification type &quot;%1&quot;.</source>
        <translation>Ninguém registou um tipo de notificação &quot;%1&quot;.</translation>
    </message>
    <message>
        <source>Why did this not pop up?</source>
        <translation>Porque não houve aviso?</translation>
    </message>
    <message>
        <source>nobody</source>
        <translation>ninguém</translation>
    </message>
    <message>
        <source>%1 (not on the contact list)</source>
        <translation>%1 (não está na lista de contactos)</translation>
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
        <translation>Diz respeito a: %1</translation>
    </message>
    <message>
        <source>Methods in the order of their calls (the newest rule comes first):</source>
        <translation>Métodos pela ordem das suas chamadas (a regra mais recente primeiro):</translation>
    </message>
    <message>
        <source>No sound: alert sounds are turned off (setting &quot;alerts&quot;: %1).</source>
        <translation>Sem som: os sons dos alertas estão desativados (definição &quot;alerts&quot;: %1).</translation>
    </message>
</context>
<context>
    <name>zepa::JournalView</name>
    <message>
        <source>Why did this not pop up?</source>
        <translation>Porque não houve aviso?</translation>
    </message>
    <message>
        <source>The journal says here for each posting why it did not pop up.</source>
        <translation>O registo diz aqui, para cada envio, porque não houve aviso.</translation>
    </message>
    <message>
        <source>Type, title, text, person</source>
        <translation>Tipo, título, texto, pessoa</translation>
    </message>
    <message>
        <source>&amp;Filter:</source>
        <translation>&amp;Filtro:</translation>
    </message>
    <message>
        <source>All verdicts</source>
        <translation>Todos os veredictos</translation>
    </message>
    <message>
        <source>Cop&amp;y</source>
        <translation>Cop&amp;iar</translation>
    </message>
    <message>
        <source>Puts the chosen lines onto the clipboard</source>
        <translation>Põe as linhas escolhidas na área de transferência</translation>
    </message>
    <message>
        <source>Journal</source>
        <translation>Registo</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <comment>event and verdict</comment>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>Verdict that is shown</source>
        <translation>Veredicto mostrado</translation>
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
        <translation>&amp;Sair</translation>
    </message>
    <message>
        <source>&amp;Notification settings...</source>
        <translation>Definições de &amp;notificações...</translation>
    </message>
    <message>
        <source>&amp;Contact</source>
        <translation>&amp;Contacto</translation>
    </message>
    <message>
        <source>&amp;Journal</source>
        <translation>&amp;Registo</translation>
    </message>
    <message>
        <source>&amp;Copy the chosen lines</source>
        <translation>&amp;Copiar as linhas escolhidas</translation>
    </message>
    <message>
        <source>Copy &amp;all lines</source>
        <translation>Copiar &amp;todas as linhas</translation>
    </message>
    <message>
        <source>C&amp;lear</source>
        <translation>&amp;Limpar</translation>
    </message>
    <message>
        <source>Another program is changing rules in %1. Events will be announced as soon as it has finished.</source>
        <translation>Outro programa está a alterar regras em %1. Os eventos serão anunciados assim que terminar.</translation>
    </message>
    <message>
        <source>Zepa cannot write to %1: your rules are in use as they are, and changes will not be saved.</source>
        <translation>O Zepa não pode escrever em %1: as suas regras aplicam-se tal como estão e as alterações não serão guardadas.</translation>
    </message>
    <message>
        <source>Zepa cannot write to %1: the default rules are in use, and changes will not be saved.</source>
        <translation>O Zepa não pode escrever em %1: aplicam-se as regras predefinidas e as alterações não serão guardadas.</translation>
    </message>
    <message>
        <source>The settings file %1 cannot be read, so all settings have their defaults.</source>
        <translation>Não é possível ler o ficheiro de definições %1, por isso todas as definições têm os valores predefinidos.</translation>
    </message>
</context>
<context>
    <name>zepa::NoticeBar</name>
    <message>
        <source>&amp;Understood</source>
        <translation>E&amp;ntendido</translation>
    </message>
</context>
<context>
    <name>zepa::NotificationSettings</name>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Desfazer</translation>
    </message>
    <message>
        <source>Red&amp;o</source>
        <translation>&amp;Refazer</translation>
    </message>
    <message>
        <source>Space adds or removes a rule. Changes are stored at once.</source>
        <translation>A barra de espaço adiciona ou remove uma regra. As alterações são guardadas de imediato.</translation>
    </message>
    <message>
        <source>Events and methods</source>
        <translation>Eventos e métodos</translation>
    </message>
    <message>
        <source>A check mark stands where an event uses a method. Space toggles it.</source>
        <translation>Uma marca indica que um evento usa um método. A barra de espaço põe ou tira a marca.</translation>
    </message>
    <message>
        <source>For all events</source>
        <translation>Para todos os eventos</translation>
    </message>
    <message>
        <source>Nothing to undo.</source>
        <translation>Nada a desfazer.</translation>
    </message>
    <message>
        <source>Last change: %1</source>
        <translation>Última alteração: %1</translation>
    </message>
</context>
<context>
    <name>zepa::ProblemBar</name>
    <message>
        <source>&amp;Try again</source>
        <translation>&amp;Tentar de novo</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Aviso</translation>
    </message>
</context>
<context>
    <name>zepa::RuleEditor</name>
    <message>
        <source>Add: %1</source>
        <translation>Adicionar: %1</translation>
    </message>
    <message>
        <source>Remove: %1</source>
        <translation>Remover: %1</translation>
    </message>
    <message>
        <source>Change: %1, %2</source>
        <translation>Alterar: %1, %2</translation>
    </message>
    <message>
        <source>Restore defaults: %1</source>
        <translation>Repor predefinições: %1</translation>
    </message>
    <message>
        <source>Change: %1</source>
        <translation>Alterar: %1</translation>
    </message>
    <message>
        <source>Undone: %1</source>
        <translation>Desfeito: %1</translation>
    </message>
    <message>
        <source>All rules are stored now.</source>
        <translation>Todas as regras estão agora guardadas.</translation>
    </message>
    <message>
        <source>%1, %2</source>
        <translation>%1, %2</translation>
    </message>
    <message>
        <source>Redone: %1</source>
        <translation>Refeito: %1</translation>
    </message>
    <message>
        <source>Rules or settings were changed outside this window.</source>
        <translation>Regras ou definições foram alteradas fora desta janela.</translation>
    </message>
</context>
<context>
    <name>zepa::RulePane</name>
    <message>
        <source>Ru&amp;le:</source>
        <translation>Re&amp;gra:</translation>
    </message>
    <message>
        <source>&amp;Add a rule</source>
        <translation>&amp;Adicionar uma regra</translation>
    </message>
    <message>
        <source>Re&amp;move this rule</source>
        <translation>Remo&amp;ver esta regra</translation>
    </message>
    <message>
        <source>Post a &amp;sample</source>
        <translation>Enviar uma a&amp;mostra</translation>
    </message>
    <message>
        <source>Restore &amp;defaults</source>
        <translation>Repor &amp;predefinições</translation>
    </message>
    <message>
        <source>No event is chosen</source>
        <translation>Nenhum evento escolhido</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <comment>event, method</comment>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>1 (newest)</source>
        <translation>1 (a mais recente)</translation>
    </message>
    <message>
        <source>&amp;Add another rule</source>
        <translation>&amp;Adicionar outra regra</translation>
    </message>
    <message>
        <source>Choose an event in the table.</source>
        <translation>Escolha um evento na tabela.</translation>
    </message>
    <message>
        <source>Choose the column of a method to see its rule.</source>
        <translation>Escolha a coluna de um método para ver a sua regra.</translation>
    </message>
    <message>
        <source>There is no rule, so this event does not use this method.</source>
        <translation>Não há regra, por isso este evento não usa este método.</translation>
    </message>
    <message>
        <source>This method has no settings.</source>
        <translation>Este método não tem definições.</translation>
    </message>
    <message>
        <source>All %1 rules act, the newest first. Space in the table and the command line reach the newest one. The next start of the program turns their order round.</source>
        <translation>Todas as %1 regras atuam, a mais recente primeiro. A barra de espaço na tabela e a linha de comandos alcançam a mais recente. O próximo arranque do programa inverte a ordem.</translation>
    </message>
    <message>
        <source>Triggers a test event so you can see and hear the result.</source>
        <translation>Desencadeia um evento de teste, para ver e ouvir o resultado.</translation>
    </message>
    <message>
        <source>Resets all notifications for this event to the defaults.</source>
        <translation>Repõe as predefinições de todas as notificações deste evento.</translation>
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
        <translation>A barra de espaço adiciona uma regra.</translation>
    </message>
    <message>
        <source>Space removes the newest rule.</source>
        <translation>A barra de espaço remove a regra mais recente.</translation>
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
        <translation>Definições de notificações</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>&amp;Fechar</translation>
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
        <translation>Com uma &amp;ação para um clique</translation>
    </message>
    <message>
        <source>A sample text</source>
        <translation>Um texto de exemplo</translation>
    </message>
    <message>
        <source>A click on the pop-up opens the chat. Only a pop-up with an action tells whether it was clicked; only one without can be sticky.</source>
        <translation>Um clique no aviso abre a conversa. Só um aviso com ação diz se foi clicado; só um sem ação pode ficar fixo.</translation>
    </message>
    <message>
        <source>&amp;Post</source>
        <translation>En&amp;viar</translation>
    </message>
    <message>
        <source>&amp;Event:</source>
        <translation>&amp;Evento:</translation>
    </message>
    <message>
        <source>&amp;Text:</source>
        <translation>&amp;Texto:</translation>
    </message>
    <message>
        <source>Event to simulate</source>
        <translation>Evento a simular</translation>
    </message>
</context>
<context>
    <name>zepa::SoundEdit</name>
    <message>
        <source>&amp;Play</source>
        <translation>To&amp;car</translation>
    </message>
    <message>
        <source>Play the sound</source>
        <translation>Tocar o som</translation>
    </message>
    <message>
        <source>C&amp;hoose...</source>
        <translation>&amp;Escolher...</translation>
    </message>
    <message>
        <source>Choose a sound file</source>
        <translation>Escolher um ficheiro de som</translation>
    </message>
    <message>
        <source>Choose a sound</source>
        <translation>Escolher um som</translation>
    </message>
    <message>
        <source>Sounds (%1)</source>
        <translation>Sons (%1)</translation>
    </message>
    <message>
        <source>%1 cannot be played, so it was not taken.</source>
        <translation>%1 não pode ser tocado, por isso não foi aceite.</translation>
    </message>
    <message>
        <source>This file cannot be played.</source>
        <translation>Este ficheiro não pode ser tocado.</translation>
    </message>
</context>
<context>
    <name>zepa::StorageStatus</name>
    <message>
        <source>The rules of “%1” were not changed: the file %2 cannot be written, or there is no room on the disk for the copy that protects it.</source>
        <translation>As regras de «%1» não foram alteradas: o ficheiro %2 não pode ser escrito, ou não há espaço no disco para a cópia que o protege.</translation>
    </message>
    <message>
        <source>The rules of “%1” are stored, but there is no room on the disk for the copy that protects them. Make room before you change more.</source>
        <translation>As regras de «%1» estão guardadas, mas não há espaço no disco para a cópia que as protege. Arranje espaço antes de alterar mais.</translation>
    </message>
    <message>
        <source>The setting “%1” cannot be written, so it was not changed. The file is %2.</source>
        <translation>A definição «%1» não pode ser escrita, por isso não foi alterada. O ficheiro é %2.</translation>
    </message>
    <message>
        <source>These events have rules that could not be written to %2, perhaps because the disk is full. They are in use until the client ends: %1.</source>
        <translation>Estes eventos têm regras que não puderam ser escritas em %2, talvez porque o disco está cheio. Valem até o programa terminar: %1.</translation>
    </message>
    <message>
        <source>, </source>
        <translation>, </translation>
    </message>
    <message>
        <source>The rules were not changed: another program is changing rules in %1. Try again when it has finished.</source>
        <translation>As regras não foram alteradas: outro programa está a alterar regras em %1. Tente de novo quando tiver terminado.</translation>
    </message>
    <message>
        <source>The setting was not changed: another program is changing %1. Try again when it has finished.</source>
        <translation>A definição não foi alterada: outro programa está a alterar %1. Tente de novo quando tiver terminado.</translation>
    </message>
</context>
</TS>
