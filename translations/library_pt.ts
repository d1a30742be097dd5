<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="pt_BR" sourcelanguage="en">
<context>
    <name>translation</name>
    <message>
        <source>Message received</source>
        <comment>notification event</comment>
        <translation>Mensagem recebida</translation>
    </message>
    <message>
        <source>When you receive any message</source>
        <comment>notification event description</comment>
        <translation>Quando recebe qualquer mensagem</translation>
    </message>
    <message>
        <source>Message received (Background chat)</source>
        <comment>notification event</comment>
        <translation>Mensagem recebida (conversa em segundo plano)</translation>
    </message>
    <message>
        <source>When you receive a message in a background chat</source>
        <comment>notification event description</comment>
        <translation>Quando recebe uma mensagem numa conversa em segundo plano</translation>
    </message>
    <message>
        <source>Message received (Initial)</source>
        <comment>notification event</comment>
        <translation>Mensagem recebida (primeira)</translation>
    </message>
    <message>
        <source>When you receive an initial message</source>
        <comment>notification event description</comment>
        <translation>Quando recebe a primeira mensagem de uma conversa</translation>
    </message>
    <message>
        <source>Message sent</source>
        <comment>notification event</comment>
        <translation>Mensagem enviada</translation>
    </message>
    <message>
        <source>When you sent message</source>
        <comment>notification event description</comment>
        <translation>Quando enviou uma mensagem</translation>
    </message>
    <message>
        <source>Alert received</source>
        <comment>notification event</comment>
        <translation>Alerta recebido</translation>
    </message>
    <message>
        <source>Alert received</source>
        <comment>notification event description</comment>
        <translation>Alerta recebido</translation>
    </message>
    <message>
        <source>Alert sent</source>
        <comment>notification event</comment>
        <translation>Alerta enviado</translation>
    </message>
    <message>
        <source>Alert sent</source>
        <comment>notification event description</comment>
        <translation>Alerta enviado</translation>
    </message>
    <message>
        <source>New email</source>
        <comment>notification event</comment>
        <translation>Novo e-mail</translation>
    </message>
    <message>
        <source>New email</source>
        <comment>notification event description</comment>
        <translation>Novo e-mail</translation>
    </message>
    <message>
        <source>Information message</source>
        <comment>notification event</comment>
        <translation>Mensagem informativa</translation>
    </message>
    <message>
        <source>Program information</source>
        <comment>notification event description</comment>
        <translation>Informação do programa</translation>
    </message>
    <message>
        <source>Error message</source>
        <comment>notification event</comment>
        <translation>Mensagem de erro</translation>
    </message>
    <message>
        <source>Program error</source>
        <comment>notification event description</comment>
        <translation>Erro do programa</translation>
    </message>
    <message>
        <source>Account logged in</source>
        <comment>notification event</comment>
        <translation>Conta ligada</translation>
    </message>
    <message>
        <source>Account logged in</source>
        <comment>notification event description</comment>
        <translation>Conta ligada</translation>
    </message>
    <message>
        <source>Buddy went offline</source>
        <comment>notification event</comment>
        <translation>Contacto ficou offline</translation>
    </message>
    <message>
        <source>When buddy changes presence to unavailable</source>
        <comment>notification event description</comment>
        <translation>Quando um contacto fica indisponível</translation>
    </message>
    <message>
        <source>Buddy connected</source>
        <comment>notification event</comment>
        <translation>Contacto ligou-se</translation>
    </message>
    <message>
        <source>When buddy changes presence from unavailable</source>
        <comment>notification event description</comment>
        <translation>Quando um contacto deixa de estar indisponível</translation>
    </message>
    <message>
        <source>Buddy went away</source>
        <comment>notification event</comment>
        <translation>Contacto ausente</translation>
    </message>
    <message>
        <source>When buddy becomes away</source>
        <comment>notification event description</comment>
        <translation>Quando um contacto se ausenta</translation>
    </message>
    <message>
        <source>Buddy changed status</source>
        <comment>notification event</comment>
        <translation>Contacto mudou de estado</translation>
    </message>
    <message>
        <source>When buddy changes status</source>
        <comment>notification event description</comment>
        <translation>Quando um contacto muda de estado</translation>
    </message>
    <message>
        <source>Typing started</source>
        <comment>notification event</comment>
        <translation>Começou a escrever</translation>
    </message>
    <message>
        <source>When buddy start typing</source>
        <comment>notification event description</comment>
        <translation>Quando um contacto começa a escrever</translation>
    </message>
    <message>
        <source>Typing stoped</source>
        <comment>notification event</comment>
        <translation>Parou de escrever</translation>
    </message>
    <message>
        <source>When buddy stop typing</source>
        <comment>notification event description</comment>
        <translation>Quando um contacto para de escrever</translation>
    </message>
    <message>
        <source>Conference message received</source>
        <comment>notification event</comment>
        <translation>Mensagem de conferência recebida</translation>
    </message>
    <message>
        <source>Conference message received</source>
        <comment>notification event description</comment>
        <translation>Mensagem de conferência recebida</translation>
    </message>
    <message>
        <source>Conference message received (Background)</source>
        <comment>notification event</comment>
        <translation>Mensagem de conferência recebida (segundo plano)</translation>
    </message>
    <message>
        <source>Conference message received (Background)</source>
        <comment>notification event description</comment>
        <translation>Mensagem de conferência recebida (segundo plano)</translation>
    </message>
    <message>
        <source>display information in chat window</source>
        <comment>action description</comment>
        <translation>mostrar informação na janela de conversa</translation>
    </message>
    <message>
        <source>Sticky</source>
        <comment>sticky notification, stays visible until user accepts it</comment>
        <translation>Fixa</translation>
    </message>
    <message>
        <source>Display a Growl notification</source>
        <comment>growl - Mac OS X system wide notification method</comment>
        <translation>Mostrar uma notificação Growl</translation>
    </message>
    <message>
        <source>sound file</source>
        <comment>nc</comment>
        <translation>ficheiro de som</translation>
    </message>
    <message>
        <source>Mute</source>
        <comment>turn off all</comment>
        <translation>Silêncio</translation>
    </message>
    <message>
        <source>Notify always</source>
        <comment>turn on all</comment>
        <translation>Avisar sempre</translation>
    </message>
    <message>
        <source>Notify from buddies only</source>
        <comment>turn on only from contacts at my list</comment>
        <translation>Avisar só de contactos</translation>
    </message>
    <message>
        <source>play sound</source>
        <comment>nc</comment>
        <translation>tocar som</translation>
    </message>
    <message>
        <source>Bounce dock icon</source>
        <comment>nc</comment>
        <translation>Fazer saltar o ícone do Dock</translation>
    </message>
</context>
</TS>
