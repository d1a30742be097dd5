<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr_FR" sourcelanguage="en">
<context>
    <name>translation</name>
    <message>
        <source>Message received</source>
        <comment>notification event</comment>
        <translation>Message reçu</translation>
    </message>
    <message>
        <source>When you receive any message</source>
        <comment>notification event description</comment>
        <translation>Quand vous recevez un message</translation>
    </message>
    <message>
        <source>Message received (Background chat)</source>
        <comment>notification event</comment>
        <translation>Message reçu (discussion en arrière-plan)</translation>
    </message>
    <message>
        <source>When you receive a message in a background chat</source>
        <comment>notification event description</comment>
        <translation>Quand vous recevez un message dans une discussion en arrière-plan</translation>
    </message>
    <message>
        <source>Message received (Initial)</source>
        <comment>notification event</comment>
        <translation>Message reçu (premier)</translation>
    </message>
    <message>
        <source>When you receive an initial message</source>
        <comment>notification event description</comment>
        <translation>Quand vous recevez le premier message d’une discussion</translation>
    </message>
    <message>
        <source>Message sent</source>
        <comment>notification event</comment>
        <translation>Message envoyé</translation>
    </message>
    <message>
        <source>When you sent message</source>
        <comment>notification event description</comment>
        <translation>Quand vous avez envoyé un message</translation>
    </message>
    <message>
        <source>Alert received</source>
        <comment>notification event</comment>
        <translation>Alerte reçue</translation>
    </message>
    <message>
        <source>Alert received</source>
        <comment>notification event description</comment>
        <translation>Alerte reçue</translation>
    </message>
    <message>
        <source>Alert sent</source>
        <comment>notification event</comment>
        <translation>Alerte envoyée</translation>
    </message>
    <message>
        <source>Alert sent</source>
        <comment>notification event description</comment>
        <translation>Alerte envoyée</translation>
    </message>
    <message>
        <source>New email</source>
        <comment>notification event</comment>
        <translation>Nouveau courriel</translation>
    </message>
    <message>
        <source>New email</source>
        <comment>notification event description</comment>
        <translation>Nouveau courriel</translation>
    </message>
    <message>
        <source>Information message</source>
        <comment>notification event</comment>
        <translation>Message d’information</translation>
    </message>
    <message>
        <source>Program information</source>
        <comment>notification event description</comment>
        <translation>Information du programme</translation>
    </message>
    <message>
        <source>Error message</source>
        <comment>notification event</comment>
        <translation>Message d’erreur</translation>
    </message>
    <message>
        <source>Program error</source>
        <comment>notification event description</comment>
        <translation>Erreur du programme</translation>
    </message>
    <message>
        <source>Account logged in</source>
        <comment>notification event</comment>
        <translation>Compte connecté</translation>
    </message>
    <message>
        <source>Account logged in</source>
        <comment>notification event description</comment>
        <translation>Compte connecté</translation>
    </message>
    <message>
        <source>Buddy went offline</source>
        <comment>notification event</comment>
        <translation>Contact hors ligne</translation>
    </message>
    <message>
        <source>When buddy changes presence to unavailable</source>
        <comment>notification event description</comment>
        <translation>Quand un contact devient indisponible</translation>
    </message>
    <message>
        <source>Buddy connected</source>
        <comment>notification event</comment>
        <translation>Contact connecté</translation>
    </message>
    <message>
        <source>When buddy changes presence from unavailable</source>
        <comment>notification event description</comment>
        <translation>Quand un contact n’est plus indisponible</translation>
    </message>
    <message>
        <source>Buddy went away</source>
        <comment>notification event</comment>
        <translation>Contact absent</translation>
    </message>
    <message>
        <source>When buddy becomes away</source>
        <comment>notification event description</comment>
        <translation>Quand un contact s’absente</translation>
    </message>
    <message>
        <source>Buddy changed status</source>
        <comment>notification event</comment>
        <translation>Statut du contact modifié</translation>
    </message>
    <message>
        <source>When buddy changes status</source>
        <comment>notification event description</comment>
        <translation>Quand un contact change de statut</translation>
    </message>
    <message>
        <source>Typing started</source>
        <comment>notification event</comment>
        <translation>Début de saisie</translation>
    </message>
    <message>
        <source>When buddy start typing</source>
        <comment>notification event description</comment>
        <translation>Quand un contact commence à écrire</translation>
    </message>
    <message>
        <source>Typing stoped</source>
        <comment>notification event</comment>
        <translation>Fin de saisie</translation>
    </message>
    <message>
        <source>When buddy stop typing</source>
        <comment>notification event description</comment>
        <translation>Quand un contact cesse d’écrire</translation>
    </message>
    <message>
        <source>Conference message received</source>
        <comment>notification event</comment>
        <translation>Message de conférence reçu</translation>
    </message>
    <message>
        <source>Conference message received</source>
        <comment>notification event description</comment>
        <translation>Message de conférence reçu</translation>
    </message>
    <message>
        <source>Conference message received (Background)</source>
        <comment>notification event</comment>
        <translation>Message de conférence reçu (arrière-plan)</translation>
    </message>
    <message>
        <source>Conference message received (Background)</source>
        <comment>notification event description</comment>
        <translation>Message de conférence reçu (arrière-plan)</translation>
    </message>
    <message>
        <source>display information in chat window</source>
        <comment>action description</comment>
        <translation>afficher l’information dans la fenêtre de discussion</translation>
    </message>
    <message>
        <source>Sticky</source>
        <comment>sticky notification, stays visible until user accepts it</comment>
        <translation>Persistante</translation>
    </message>
    <message>
        <source>Display a Growl notification</source>
        <comment>growl - Mac OS X system wide notification method</comment>
        <translation>Afficher une notification Growl</translation>
    </message>
    <message>
        <source>sound file</source>
        <comment>nc</comment>
        <translation>fichier son</translation>
    </message>
    <message>
        <source>Mute</source>
        <comment>turn off all</comment>
        <translation>Muet</translation>
    </message>
    <message>
        <source>Notify always</source>
        <comment>turn on all</comment>
        <translation>Toujours prévenir</translation>
    </message>
    <message>
        <source>Notify from buddies only</source>
        <comment>turn on only from contacts at my list</comment>
        <translation>Prévenir pour les contacts seulement</translation>
    </message>
    <message>
        <source>play sound</source>
        <comment>nc</comment>
        <translation>jouer un son</translation>
    </message>
    <message>
        <source>Bounce dock icon</source>
        <comment>nc</comment>
        <translation>Faire sauter l’icône du Dock</translation>
    </message>
</context>
</TS>
