<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es" sourcelanguage="en">
<context>
    <name>kelu::FileViewer</name>
    <message>
        <source>Files</source>
        <translation>Archivos</translation>
    </message>
    <message>
        <source>Reading the folder...</source>
        <translation>Leyendo la carpeta...</translation>
    </message>
    <message>
        <source>No pictures in this folder</source>
        <translation>No hay imágenes en esta carpeta</translation>
    </message>
    <message>
        <source>You have no right to look into this folder</source>
        <translation>No tiene permiso para ver esta carpeta</translation>
    </message>
    <message>
        <source>This folder can&apos;t be read</source>
        <translation>No se puede leer esta carpeta</translation>
    </message>
</context>
<context>
    <name>kelu::FolderCombo</name>
    <message>
        <source>Path</source>
        <translation>Ruta</translation>
    </message>
</context>
<context>
    <name>kelu::FolderModel</name>
    <message>
        <source>Name</source>
        <translation>Nombre</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Tamaño</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>Tipo</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>Fecha</translation>
    </message>
</context>
<context>
    <name>kelu::Language</name>
    <message>
        <source>ID</source>
        <comment>number of the language</comment>
        <extracomment>The number under which the setting &quot;ID&quot; chooses this language. A number that no other language has.</extracomment>
        <translation>2</translation>
    </message>
</context>
<context>
    <name>kelu::Places</name>
    <message>
        <source>Home</source>
        <translation>Carpeta personal</translation>
    </message>
    <message>
        <source>Pictures</source>
        <translation>Imágenes</translation>
    </message>
    <message>
        <source>Documents</source>
        <translation>Documentos</translation>
    </message>
    <message>
        <source>Computer</source>
        <translation>PC</translation>
    </message>
</context>
<context>
    <name>kelu::TitleRow</name>
    <message>
        <source>Close</source>
        <translation>Cerrar</translation>
    </message>
</context>
<context>
    <name>kelu::frmBrowse</name>
    <message>
        <source>Open</source>
        <translation>Abrir</translation>
    </message>
    <message>
        <source>My Pictures</source>
        <translation>Mis Imágenes</translation>
    </message>
    <message>
        <source>Gallery</source>
        <translation>Galería</translation>
    </message>
    <message>
        <source>My Documents</source>
        <translation>Mis Documentos</translation>
    </message>
    <message>
        <source>My Computer</source>
        <translation>Mi PC</translation>
    </message>
    <message>
        <source>Large Icons</source>
        <translation>Iconos Grandes</translation>
    </message>
    <message>
        <source>Small Icons</source>
        <translation>Iconos Pequeños</translation>
    </message>
    <message>
        <source>List</source>
        <translation>Lista</translation>
    </message>
    <message>
        <source>Details</source>
        <translation>Detalles</translation>
    </message>
    <message>
        <source>Thumbnails</source>
        <translation>Miniaturas de Imágenes</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>Look in:</source>
        <translation>Mirar en:</translation>
    </message>
    <message>
        <source>Back one folder</source>
        <translation>Volver una carpeta</translation>
    </message>
    <message>
        <source>Move up one folder</source>
        <translation>Avanzar una carpeta</translation>
    </message>
    <message>
        <source>Views</source>
        <translation>Vistas</translation>
    </message>
    <message>
        <source>There is no folder and no picture &quot;%1&quot;</source>
        <translation>No hay ninguna carpeta ni imagen &quot;%1&quot;</translation>
    </message>
</context>
<context>
    <name>kelu::frmPrint</name>
    <message>
        <source>Print</source>
        <translation>Imprimir</translation>
    </message>
    <message>
        <source>Print </source>
        <translation>Imprimir </translation>
    </message>
    <message>
        <source>Cancel </source>
        <translation>Cancelar </translation>
    </message>
    <message>
        <source>Available Printers</source>
        <translation>Impresoras disponibles</translation>
    </message>
    <message>
        <source>Orietation</source>
        <translation>Orientación</translation>
    </message>
    <message>
        <source>Portrait</source>
        <translation>Vertical</translation>
    </message>
    <message>
        <source>Landscape</source>
        <translation>Horizontal</translation>
    </message>
    <message>
        <source>No printer found</source>
        <translation>No hay ninguna impresora</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>Vista previa</translation>
    </message>
</context>
</TS>
