<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es_ES" sourcelanguage="en">
<context>
    <name>translation</name>
    <message>
        <source>Message received</source>
        <comment>notification event</comment>
        <translation>Mensaje recibido</translation>
    </message>
    <message>
        <source>When you receive any message</source>
        <comment>notification event description</comment>
        <translation>Cuando recibe un mensaje</translation>
    </message>
    <message>
        <source>Message received (Background chat)</source>
        <comment>notification event</comment>
        <translation>Mensaje recibido (chat en segundo plano)</translation>
    </message>
    <message>
        <source>When you receive a message in a background chat</source>
        <comment>notification event description</comment>
        <translation>Cuando recibe un mensaje en un chat en segundo plano</translation>
    </message>
    <message>
        <source>Message received (Initial)</source>
        <comment>notification event</comment>
        <translation>Mensaje recibido (primero)</translation>
    </message>
    <message>
        <source>When you receive an initial message</source>
        <comment>notification event description</comment>
        <translation>Cuando recibe el primer mensaje de una conversación</translation>
    </message>
    <message>
        <source>Message sent</source>
        <comment>notification event</comment>
        <translation>Mensaje enviado</translation>
    </message>
    <message>
        <source>When you sent message</source>
        <comment>notification event description</comment>
        <translation>Cuando ha enviado un mensaje</translation>
    </message>
    <message>
        <source>Alert received</source>
        <comment>notification event</comment>
        <translation>Aviso recibido</translation>
    </message>
    <message>
        <source>Alert received</source>
        <comment>notification event description</comment>
        <translation>Aviso recibido</translation>
    </message>
    <message>
        <source>Alert sent</source>
        <comment>notification event</comment>
        <translation>Aviso enviado</translation>
    </message>
    <message>
        <source>Alert sent</source>
        <comment>notification event description</comment>
        <translation>Aviso enviado</translation>
    </message>
    <message>
        <source>New email</source>
        <comment>notification event</comment>
        <translation>Correo nuevo</translation>
    </message>
    <message>
        <source>New email</source>
        <comment>notification event description</comment>
        <translation>Correo nuevo</translation>
    </message>
    <message>
        <source>Information message</source>
        <comment>notification event</comment>
        <translation>Mensaje informativo</translation>
    </message>
    <message>
        <source>Program information</source>
        <comment>notification event description</comment>
        <translation>Información del programa</translation>
    </message>
    <message>
        <source>Error message</source>
        <comment>notification event</comment>
        <translation>Mensaje de error</translation>
    </message>
    <message>
        <source>Program error</source>
        <comment>notification event description</comment>
        <translation>Error del programa</translation>
    </message>
    <message>
        <source>Account logged in</source>
        <comment>notification event</comment>
        <translation>Cuenta conectada</translation>
    </message>
    <message>
        <source>Account logged in</source>
        <comment>notification event description</comment>
        <translation>Cuenta conectada</translation>
    </message>
    <message>
        <source>Buddy went offline</source>
        <comment>notification event</comment>
        <translation>Contacto desconectado</translation>
    </message>
    <message>
        <source>When buddy changes presence to unavailable</source>
        <comment>notification event description</comment>
        <translation>Cuando un contacto deja de estar disponible</translation>
    </message>
    <message>
        <source>Buddy connected</source>
        <comment>notification event</comment>
        <translation>Contacto conectado</translation>
    </message>
    <message>
        <source>When buddy changes presence from unavailable</source>
        <comment>notification event description</comment>
        <translation>Cuando un contacto vuelve a estar disponible</translation>
    </message>
    <message>
        <source>Buddy went away</source>
        <comment>notification event</comment>
        <translation>Contacto ausente</translation>
    </message>
    <message>
        <source>When buddy becomes away</source>
        <comment>notification event description</comment>
        <translation>Cuando un contacto se ausenta</translation>
    </message>
    <message>
        <source>Buddy changed status</source>
        <comment>notification event</comment>
        <translation>Contacto cambió de estado</translation>
    </message>
    <message>
        <source>When buddy changes status</source>
        <comment>notification event description</comment>
        <translation>Cuando un contacto cambia de estado</translation>
    </message>
    <message>
        <source>Typing started</source>
        <comment>notification event</comment>
        <translation>Empieza a escribir</translation>
    </message>
    <message>
        <source>When buddy start typing</source>
        <comment>notification event description</comment>
        <translation>Cuando un contacto empieza a escribir</translation>
    </message>
    <message>
        <source>Typing stoped</source>
        <comment>notification event</comment>
        <translation>Deja de escribir</translation>
    </message>
    <message>
        <source>When buddy stop typing</source>
        <comment>notification event description</comment>
        <translation>Cuando un contacto deja de escribir</translation>
    </message>
    <message>
        <source>Conference message received</source>
        <comment>notification event</comment>
        <translation>Mensaje de conferencia recibido</translation>
    </message>
    <message>
        <source>Conference message received</source>
        <comment>notification event description</comment>
        <translation>Mensaje de conferencia recibido</translation>
    </message>
    <message>
        <source>Conference message received (Background)</source>
        <comment>notification event</comment>
        <translation>Mensaje de conferencia recibido (segundo plano)</translation>
    </message>
    <message>
        <source>Conference message received (Background)</source>
        <comment>notification event description</comment>
        <translation>Mensaje de conferencia recibido (segundo plano)</translation>
    </message>
    <message>
        <source>display information in chat window</source>
        <comment>action description</comment>
        <translation>mostrar información en la ventana de chat</translation>
    </message>
    <message>
        <source>Sticky</source>
        <comment>sticky notification, stays visible until user accepts it</comment>
        <translation>Permanente</translation>
    </message>
    <message>
        <source>Display a Growl notification</source>
        <comment>growl - Mac OS X system wide notification method</comment>
        <translation>Mostrar una notificación de Growl</translation>
    </message>
    <message>
        <source>sound file</source>
        <comment>nc</comment>
        <translation>archivo de sonido</translation>
    </message>
    <message>
        <source>Mute</source>
        <comment>turn off all</comment>
        <translation>Silencio</translation>
    </message>
    <message>
        <source>Notify always</source>
        <comment>turn on all</comment>
        <translation>Avisar siempre</translation>
    </message>
    <message>
        <source>Notify from buddies only</source>
        <comment>turn on only from contacts at my list</comment>
        <translation>Avisar solo de contactos</translation>
    </message>
    <message>
        <source>play sound</source>
        <comment>nc</comment>
        <translation>reproducir sonido</translation>
    </message>
    <message>
        <source>Bounce dock icon</source>
        <comment>nc</comment>
        <translation>Hacer saltar el icono del Dock</translation>
    </message>
</context>
</TS>
