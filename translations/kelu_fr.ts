<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr" sourcelanguage="en">
<context>
    <name>kelu::Language</name>
    <message>
        <source>ID</source>
        <comment>number of the language</comment>
        <extracomment>The number under which the setting &quot;ID&quot; chooses this language. A number that no other language has.</extracomment>
        <translation>3</translation>
    </message>
</context>
<context>
    <name>kelu::TitleRow</name>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
</context>
<context>
    <name>kelu::frmPrint</name>
    <message>
        <source>Print</source>
        <translation>Imprimer</translation>
    </message>
    <message>
        <source>Print </source>
        <translation>Imprimer </translation>
    </message>
    <message>
        <source>Cancel </source>
        <translation>Annuler </translation>
    </message>
    <message>
        <source>Available Printers</source>
        <translation>Imprimantes</translation>
    </message>
    <message>
        <source>Orietation</source>
        <translation>Orientación</translation>
    </message>
    <message>
        <source>Portrait</source>
        <translation>Portrait</translation>
    </message>
    <message>
        <source>Landscape</source>
        <translation>Paysage</translation>
    </message>
    <message>
        <source>No printer found</source>
        <translation>Aucune imprimante</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>Aperçu</translation>
    </message>
</context>
</TS>
