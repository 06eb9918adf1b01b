<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es" sourcelanguage="en">
<context>
    <name>Commands</name>
    <message>
        <source>Open</source>
        <translation type="unfinished">Abrir</translation>
    </message>
    <message>
        <source>Save</source>
        <translation type="unfinished">Guardar</translation>
    </message>
    <message>
        <source>E-mail</source>
        <translation type="unfinished">Correo</translation>
    </message>
    <message>
        <source>Print</source>
        <translation type="unfinished">Imprimir</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Undo</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Redo</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Capture Image (F8)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show Original Image</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Zoom In</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Zoom Out</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reset Zoom</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Settings</source>
        <translation type="unfinished">Ajustes</translation>
    </message>
    <message>
        <source>Help</source>
        <translation type="unfinished">Ayuda</translation>
    </message>
    <message>
        <source>Minimize</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Maximize</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Close</source>
        <translation type="unfinished">Cerrar</translation>
    </message>
    <message>
        <source>Finish the capture first</source>
        <translation>Termine antes la captura</translation>
    </message>
    <message>
        <source>Open a picture first</source>
        <translation>Abra antes una imagen</translation>
    </message>
    <message>
        <source>This picture is saved: open it again to go on</source>
        <translation>Esta imagen ya está guardada: ábrala otra vez para seguir</translation>
    </message>
    <message>
        <source>Nothing is painted yet</source>
        <translation>Todavía no hay nada pintado</translation>
    </message>
    <message>
        <source>Choose an effect first</source>
        <translation>Elija antes un efecto</translation>
    </message>
</context>
<context>
    <name>Effects</name>
    <message>
        <source>Amount</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Angle</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Antialias</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>B&amp;W Dithered</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Background Color</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Base Level</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Black &amp; White</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Black &amp;&amp; White</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Black &amp;&amp; White Dithered</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Black Point</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Blobs</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Block Height</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Block Width</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Blue Bits</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Blue Threshold</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Blur</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Blur 1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Blur 2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Blur 3</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Border Color</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Borders</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Brightness</source>
        <translation type="unfinished">Brillo</translation>
    </message>
    <message>
        <source>Brightness 1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Brightness 2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Circle</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Color</source>
        <translation type="unfinished">Color</translation>
    </message>
    <message>
        <source>Color Correction</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Color Emboss</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Color Gradient</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Colorize</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Colors</source>
        <translation type="unfinished">Colores</translation>
    </message>
    <message>
        <source>Contrast</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Dark Color</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Depth</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Direction &amp;&amp; Intensity</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Displacement</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>East</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Edges and Relief</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Emboss</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Enhance Edge</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Enhance Edges</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Erode Border</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Erode Borders</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Eroded Borders</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Explode</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fade Borders</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Faded Borders</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>False Color</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fish Eye</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Freeze</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Gradient East</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Gradient North</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Gradient South</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Gradient West</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Gray Level</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Grayscale</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Green - Blue</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Green Bits</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Green Threshold</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Hardness</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>High Pass</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>High Pass 1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>High Pass 2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>High Pass 3</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Implode</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Intensity</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Irregular Borders</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Laplace 1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Laplace 2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Laplace 3</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Laplace Diagonal</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Laplace Horizontal</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Laplace Vertical</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Length</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Light Color</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Light and Grain</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Maximum</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Melt</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Minimum</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Minmum</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Mosaic</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Negative</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Neon</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No Settings. Click on &apos;Apply&apos; button.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Noise</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>North</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>North Est</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>North West</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Oil Painting</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Painting</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Posterize</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Prewitt Horizontal</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Prewitt Vertical</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Proportional</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Radius</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Red - Blue</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Red - Green</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Red Bits</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Red Threshold</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reverse</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Saturation</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Saturation 1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Saturation 2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Scramble</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select Colors</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select a Color</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sepia</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Shapes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Share Moved</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Shift &amp; Difference Diagonal</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Shift &amp; Difference Horizontal</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Shift &amp; Difference Vertical</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sketch</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sobel Horizontal</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sobel Vertical</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Solarize</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>South</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>South East</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>South West</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Spacing</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Special Filter</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Spray</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Square</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Square Size</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Strength</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Swap Colors</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Threshold</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Tile</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Tile Size</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Tint</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Tint Color</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Weighted</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>West</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>White Point</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Width</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Wind</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Wind Downward</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Wind to the Right</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>OpenSave</name>
    <message>
        <source>Confirm</source>
        <translation>Confirmar</translation>
    </message>
    <message>
        <source>Save changes to &apos;%1&apos;?<byte value="xd"/>
</source>
        <translation>¿Guardar los cambios en «%1»?<byte value="xd"/>
</translation>
    </message>
    <message>
        <source>Made smaller, %1 to %2</source>
        <translation>Reducida de %1 a %2</translation>
    </message>
    <message>
        <source>Open in full size</source>
        <translation>Abrir a tamaño completo</translation>
    </message>
    <message>
        <source>&apos;%1&apos; was made smaller when it was opened, from %2 to %3 pixels. Saved over it, its full size is lost.<byte value="xd"/>
<byte value="xd"/>
Save over it all the same?<byte value="xd"/>
</source>
        <translation>«%1» se redujo al abrirla, de %2 a %3 píxeles. Si se sobrescribe, se pierde el tamaño completo.<byte value="xd"/>
<byte value="xd"/>
¿Sobrescribir de todos modos?<byte value="xd"/>
</translation>
    </message>
    <message>
        <source>Go on with it</source>
        <translation>Seguir con ella</translation>
    </message>
    <message>
        <source>Show in folder</source>
        <translation>Mostrar en la carpeta</translation>
    </message>
    <message>
        <source>Saved as %1</source>
        <translation>Guardado como %1</translation>
    </message>
</context>
<context>
    <name>PaintReminder</name>
    <message>
        <source>Hold Ctrl while you paint to bring the original back</source>
        <translation>Mantenga Ctrl al pintar para recuperar el original</translation>
    </message>
    <message>
        <source>The effect is ready to be painted</source>
        <translation>El efecto está listo para pintarlo</translation>
    </message>
</context>
<context>
    <name>Painter</name>
    <message>
        <source>Nothing painted yet: choose an effect, Apply, then brush</source>
        <translation>Aún no se ha pintado nada: elija un efecto, Apply, y luego pinte</translation>
    </message>
</context>
<context>
    <name>SliderMenu</name>
    <message>
        <source>Last used: %1</source>
        <translation>Último: %1</translation>
    </message>
    <message>
        <source>Default: %1</source>
        <translation>Inicial: %1</translation>
    </message>
</context>
<context>
    <name>kelu::AboutMessage</name>
    <message>
        <source>Copyright © 2026 Tarvane Design. Free under the MIT licence.</source>
        <translation>Copyright © 2026 Tarvane Design. Libre bajo la licencia MIT.</translation>
    </message>
    <message>
        <source>Written by the people of Tarvane Design</source>
        <translation>Escrito por la gente de Tarvane Design</translation>
    </message>
    <message>
        <source>I would like to thank all the people who supported me during the development of Kelu. Those endless nights and the bottomless cups of coffee and music that got me going while I faced certain &apos;challanges&apos;.</source>
        <translation>Quiero dar las gracias a todos los que me apoyaron durante el desarrollo de Kelu: las noches interminables, las tazas de café sin fondo y la música que me animó ante ciertos «desafíos».</translation>
    </message>
    <message>
        <source>I would like to thank Fathsoft for their invaluable help and also providing the excellant ImageX imaging component which Kelu is based on.</source>
        <translation>Quiero dar las gracias a Fathsoft por su inestimable ayuda y por el excelente componente de imagen ImageX en el que se basa Kelu.</translation>
    </message>
    <message>
        <source>This program is dedicated to my little daughter.</source>
        <translation>Este programa está dedicado a mi hijita.</translation>
    </message>
    <message>
        <source>I hope you enjoy this program and find it fun and useful.</source>
        <translation>Espero que disfrute de este programa y que le resulte divertido y útil.</translation>
    </message>
    <message>
        <source>About Kelu...</source>
        <translation>Acerca de Kelu...</translation>
    </message>
</context>
<context>
    <name>kelu::AtomicFile</name>
    <message>
        <source>the link leads nowhere</source>
        <translation>el enlace no lleva a ninguna parte</translation>
    </message>
    <message>
        <source>this is a folder</source>
        <translation>esto es una carpeta</translation>
    </message>
    <message>
        <source>this is not a file</source>
        <translation>esto no es un archivo</translation>
    </message>
    <message>
        <source>the file is read-only</source>
        <translation>el archivo es de solo lectura</translation>
    </message>
    <message>
        <source>the folder does not exist</source>
        <translation>la carpeta no existe</translation>
    </message>
    <message>
        <source>the folder cannot be written to</source>
        <translation>no se puede escribir en la carpeta</translation>
    </message>
    <message>
        <source>already written</source>
        <translation>ya está escrito</translation>
    </message>
    <message>
        <source>the folder cannot be written to, and there is no room for a copy</source>
        <translation>no se puede escribir en la carpeta y no hay sitio para una copia</translation>
    </message>
    <message>
        <source>%1; the old file is kept as %2</source>
        <translation>%1; el archivo anterior se conserva como %2</translation>
    </message>
</context>
<context>
    <name>kelu::BrushRing</name>
    <message>
        <source>%1 px</source>
        <translation>%1 px</translation>
    </message>
    <message>
        <source>%1, soft %2 %</source>
        <translation>%1, suave %2 %</translation>
    </message>
</context>
<context>
    <name>kelu::CWinInetConnection</name>
    <message>
        <source>The operation timed out</source>
        <translation>Se agotó el tiempo de espera</translation>
    </message>
    <message>
        <source>The server name or address could not be resolved</source>
        <translation>No se pudo resolver el nombre o la dirección del servidor</translation>
    </message>
    <message>
        <source>A connection with the server could not be established</source>
        <translation>No se pudo establecer la conexión con el servidor</translation>
    </message>
    <message>
        <source>The connection with the Internet has been lost</source>
        <translation>Se ha perdido la conexión con Internet</translation>
    </message>
</context>
<context>
    <name>kelu::CameraCapture</name>
    <message>
        <source>Unable to find a capture device!<byte value="xd"/>
This feature will be disabled.</source>
        <translation>¡No se encuentra ningún dispositivo de captura!<byte value="xd"/>
Esta función quedará desactivada.</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Error</translation>
    </message>
    <message>
        <source>Invalid property value</source>
        <translation>Valor de propiedad no válido</translation>
    </message>
    <message>
        <source>The camera gives no picture.<byte value="xd"/>
%1.</source>
        <translation>La cámara no da ninguna imagen.<byte value="xd"/>
%1.</translation>
    </message>
    <message>
        <source>Don&apos;t Show This Again</source>
        <translation>No volver a mostrar</translation>
    </message>
</context>
<context>
    <name>kelu::CanvasHand</name>
    <message>
        <source>Hold Ctrl and turn the wheel to zoom</source>
        <translation>Mantenga Ctrl y gire la rueda para ampliar o reducir</translation>
    </message>
</context>
<context>
    <name>kelu::CapturePanel</name>
    <message>
        <source>Capture Image (F8)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Use Captured Image</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Exit Capture Mode</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>kelu::ColorPicker</name>
    <message>
        <source>Color</source>
        <translation>Color</translation>
    </message>
</context>
<context>
    <name>kelu::ColorPopup</name>
    <message>
        <source>Colors</source>
        <translation>Colores</translation>
    </message>
    <message>
        <source>Hexadecimal color</source>
        <translation>Color hexadecimal</translation>
    </message>
    <message>
        <source>Red</source>
        <translation>Rojo</translation>
    </message>
    <message>
        <source>Green</source>
        <translation>Verde</translation>
    </message>
    <message>
        <source>Blue</source>
        <translation>Azul</translation>
    </message>
</context>
<context>
    <name>kelu::CommandLook</name>
    <message>
        <source>Nothing to undo</source>
        <translation>Nada que deshacer</translation>
    </message>
    <message>
        <source>Nothing to redo</source>
        <translation>Nada que rehacer</translation>
    </message>
    <message>
        <source>not applied yet</source>
        <translation>aún sin aplicar</translation>
    </message>
</context>
<context>
    <name>kelu::EffectOverview</name>
    <message>
        <source>All effects</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Effects</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>kelu::EffectPanel</name>
    <message>
        <source>Brush Size</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>X,Y Coordinates</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>  Apply</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>X coordinate</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Y coordinate</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pick the point on the picture</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>kelu::EffectSelectors</name>
    <message>
        <source>Effects</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>All effects</source>
        <translation type="unfinished"></translation>
    </message>
</context>
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
    <name>kelu::FilmDialog</name>
    <message>
        <source>Save...</source>
        <translation>Guardar...</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>As It Grew</source>
        <translation>Cómo creció</translation>
    </message>
    <message>
        <source>The film</source>
        <translation>La película</translation>
    </message>
    <message>
        <source>%1 × %2 pixels, %3</source>
        <translation>%1 × %2 píxeles, %3</translation>
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
    <name>kelu::GstStream</name>
    <message>
        <source>The camera is in use by another program</source>
        <translation>Otro programa está usando la cámara</translation>
    </message>
    <message>
        <source>This user may not use the camera</source>
        <translation>Este usuario no puede usar la cámara</translation>
    </message>
    <message>
        <source>The camera was disconnected</source>
        <translation>Se ha desconectado la cámara</translation>
    </message>
    <message>
        <source>The camera can&apos;t be opened</source>
        <translation>No se puede abrir la cámara</translation>
    </message>
    <message>
        <source>GStreamer lacks its part &quot;%1&quot;</source>
        <translation>A GStreamer le falta la parte «%1»</translation>
    </message>
    <message>
        <source>The camera sends a picture format that is not known here</source>
        <translation>La cámara envía un formato de imagen desconocido aquí</translation>
    </message>
    <message>
        <source>The camera sends pictures that can&apos;t be read</source>
        <translation>La cámara envía imágenes que no se pueden leer</translation>
    </message>
</context>
<context>
    <name>kelu::GstVideoCapX</name>
    <message>
        <source>Invalid property value</source>
        <translation>Valor de propiedad no válido</translation>
    </message>
    <message>
        <source>There is no capture device</source>
        <translation>No hay ningún dispositivo de captura</translation>
    </message>
    <message>
        <source>The camera was disconnected</source>
        <translation>Se ha desconectado la cámara</translation>
    </message>
    <message>
        <source>The camera does not send any picture</source>
        <translation>La cámara no envía ninguna imagen</translation>
    </message>
</context>
<context>
    <name>kelu::Help</name>
    <message>
        <source>&lt;b&gt;Open&lt;/b&gt; a picture with Ctrl+O, or drop one onto the window.</source>
        <translation>&lt;b&gt;Abra&lt;/b&gt; una imagen con Ctrl+O, o suelte una sobre la ventana.</translation>
    </message>
    <message>
        <source>Choose an effect at the right and set its inputs. &lt;b&gt;Apply&lt;/b&gt; renders it over a hidden copy of your picture.</source>
        <translation>Elija un efecto a la derecha y ajústelo. &lt;b&gt;Apply&lt;/b&gt; lo calcula sobre una copia oculta de su imagen.</translation>
    </message>
    <message>
        <source>&lt;b&gt;Paint&lt;/b&gt; with the left mouse button. The first slider sets the size of the brush.</source>
        <translation>&lt;b&gt;Pinte&lt;/b&gt; con el botón izquierdo del ratón. El primer control fija el tamaño del pincel.</translation>
    </message>
    <message>
        <source>Not good? Ctrl+Z takes a stroke back, Ctrl+Y brings it again. Ctrl+S &lt;b&gt;saves&lt;/b&gt; the picture.</source>
        <translation>¿No le gusta? Ctrl+Z quita un trazo, Ctrl+Y lo devuelve. Ctrl+S &lt;b&gt;guarda&lt;/b&gt; la imagen.</translation>
    </message>
    <message>
        <source>Have fun with effects</source>
        <translation>Diviértase con los efectos</translation>
    </message>
    <message>
        <source>Open a photo, choose an effect, press &lt;b&gt;Apply&lt;/b&gt; - and brush it on where you like it.</source>
        <translation>Abra una foto, elija un efecto, pulse &lt;b&gt;Apply&lt;/b&gt; y píntelo donde le guste.</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Ajustes</translation>
    </message>
    <message>
        <source>All effects</source>
        <translation>Todos los efectos</translation>
    </message>
    <message>
        <source>All effects stand below. What hands can do is told under %1, how to set up the program under %2.</source>
        <translation>Todos los efectos están abajo. Lo que pueden hacer las manos se explica en %1, y cómo ajustar el programa, en %2.</translation>
    </message>
    <message>
        <source>Mouse and keys</source>
        <translation>Ratón y teclas</translation>
    </message>
</context>
<context>
    <name>kelu::HelpBrowser</name>
    <message>
        <source>Help page</source>
        <translation>Página de ayuda</translation>
    </message>
    <message>
        <source>This page is missing</source>
        <translation>Falta esta página</translation>
    </message>
    <message>
        <source>&lt;p&gt;The help has no page called &lt;b&gt;%1&lt;/b&gt;. It should lie here:&lt;/p&gt;&lt;p class=&quot;note&quot;&gt;%2&lt;/p&gt;&lt;p&gt;Perhaps the program was moved without its &lt;b&gt;help&lt;/b&gt; folder. Putting the folder back beside the program, or installing Kelu again, brings the page back.&lt;/p&gt;</source>
        <translation>&lt;p&gt;La ayuda no tiene ninguna página llamada &lt;b&gt;%1&lt;/b&gt;. Debería estar aquí:&lt;/p&gt;&lt;p class=&quot;note&quot;&gt;%2&lt;/p&gt;&lt;p&gt;Quizá se movió el programa sin su carpeta &lt;b&gt;help&lt;/b&gt;. Si vuelve a poner la carpeta junto al programa, o instala Kelu de nuevo, la página volverá.&lt;/p&gt;</translation>
    </message>
    <message>
        <source>Nothing found</source>
        <translation>No se ha encontrado nada</translation>
    </message>
    <message>
        <source>&lt;p&gt;No page holds &lt;b&gt;%1&lt;/b&gt;. Fewer words or the beginning of a word find more; or have a look at &lt;a href=&quot;%2&quot;&gt;all effects&lt;/a&gt;.&lt;/p&gt;</source>
        <translation>&lt;p&gt;Ninguna página contiene &lt;b&gt;%1&lt;/b&gt;. Con menos palabras o el principio de una se encuentra más; o vea &lt;a href=&quot;%2&quot;&gt;todos los efectos&lt;/a&gt;.&lt;/p&gt;</translation>
    </message>
    <message>
        <source>One page for &lt;b&gt;%1&lt;/b&gt;</source>
        <translation>Una página para &lt;b&gt;%1&lt;/b&gt;</translation>
    </message>
    <message>
        <source>%2 pages for &lt;b&gt;%1&lt;/b&gt;</source>
        <translation>%2 páginas para &lt;b&gt;%1&lt;/b&gt;</translation>
    </message>
    <message>
        <source>Found</source>
        <translation>Encontrado</translation>
    </message>
</context>
<context>
    <name>kelu::HelpWindow</name>
    <message>
        <source>Back (Alt+Left)</source>
        <translation>Atrás (Alt+Izquierda)</translation>
    </message>
    <message>
        <source>Forward (Alt+Right)</source>
        <translation>Adelante (Alt+Derecha)</translation>
    </message>
    <message>
        <source>All effects (Alt+Home)</source>
        <translation>Todos los efectos (Alt+Inicio)</translation>
    </message>
    <message>
        <source>Kelu Help</source>
        <translation>Ayuda de Kelu</translation>
    </message>
    <message>
        <source>Drag to change the size</source>
        <translation>Arrastre para cambiar el tamaño</translation>
    </message>
    <message>
        <source>Kelu Help - </source>
        <translation>Ayuda de Kelu - </translation>
    </message>
    <message>
        <source>Search all pages</source>
        <translation>Buscar en todas las páginas</translation>
    </message>
</context>
<context>
    <name>kelu::History</name>
    <message>
        <source>Showing the original</source>
        <translation>Se muestra el original</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Volver</translation>
    </message>
</context>
<context>
    <name>kelu::HueField</name>
    <message>
        <source>Hue and saturation</source>
        <translation>Tono y saturación</translation>
    </message>
    <message>
        <source>Hue %1, saturation %2</source>
        <translation>Tono %1, saturación %2</translation>
    </message>
</context>
<context>
    <name>kelu::ImageX</name>
    <message>
        <source>Picture</source>
        <translation>Imagen</translation>
    </message>
</context>
<context>
    <name>kelu::Journal</name>
    <message>
        <source>the folder %1 can&apos;t be made</source>
        <translation>no se puede crear la carpeta %1</translation>
    </message>
    <message>
        <source>The brush of the picture before, which painted here, could not be kept</source>
        <translation>No se pudo guardar el pincel de la imagen anterior, con el que se pintó aquí</translation>
    </message>
</context>
<context>
    <name>kelu::Language</name>
    <message>
        <source>ID</source>
        <comment>value of the setting</comment>
        <extracomment>The text of the setting &quot;ID&quot; that chooses this language, one that no other language has.</extracomment>
        <translation>2</translation>
    </message>
</context>
<context>
    <name>kelu::ListEx</name>
    <message>
        <source>Invalid property value</source>
        <translation>Valor de propiedad no válido</translation>
    </message>
</context>
<context>
    <name>kelu::MailClient</name>
    <message>
        <source>This desktop has no way to open a mail program (xdg-email)</source>
        <translation>Este escritorio no puede abrir un programa de correo (xdg-email)</translation>
    </message>
    <message>
        <source>Sending was cancelled</source>
        <translation>Se canceló el envío</translation>
    </message>
    <message>
        <source>The mail program could not be opened</source>
        <translation>No se pudo abrir el programa de correo</translation>
    </message>
    <message>
        <source>%1: the file is missing</source>
        <translation>%1: falta el archivo</translation>
    </message>
    <message>
        <source>No mail program is set up on this system</source>
        <translation>En este sistema no hay ningún programa de correo configurado</translation>
    </message>
</context>
<context>
    <name>kelu::MailMessage</name>
    <message>
        <source>&quot;%1&quot; is no mail address</source>
        <translation>«%1» no es una dirección de correo</translation>
    </message>
</context>
<context>
    <name>kelu::MainWindow</name>
    <message>
        <source>Restore Down</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Maximize</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Picture</source>
        <translation type="unfinished">Imagen</translation>
    </message>
    <message>
        <source>Original picture</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Captured picture</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open a picture</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Press %1, or drop a photo here</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>kelu::MessageWindow</name>
    <message>
        <source>&amp;Yes</source>
        <translation>&amp;Sí</translation>
    </message>
    <message>
        <source>&amp;No</source>
        <translation>&amp;No</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>Aceptar</translation>
    </message>
</context>
<context>
    <name>kelu::MsgDialog</name>
    <message>
        <source>Out of memory</source>
        <translation>No hay memoria suficiente</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Error</translation>
    </message>
    <message>
        <source>The following error has occured:<byte value="xd"/>
%1 (%2)<byte value="xd"/>
</source>
        <translation>Se ha producido el error siguiente:<byte value="xd"/>
%1 (%2)<byte value="xd"/>
</translation>
    </message>
</context>
<context>
    <name>kelu::OfferedPicture</name>
    <message>
        <source>The other program did not give the picture that it offers</source>
        <translation>El otro programa no ha entregado la imagen que ofrece</translation>
    </message>
</context>
<context>
    <name>kelu::Pager</name>
    <message>
        <source>Scroll up</source>
        <translation>Desplazar hacia arriba</translation>
    </message>
    <message>
        <source>Scroll left</source>
        <translation>Desplazar a la izquierda</translation>
    </message>
    <message>
        <source>Scroll down</source>
        <translation>Desplazar hacia abajo</translation>
    </message>
    <message>
        <source>Scroll right</source>
        <translation>Desplazar a la derecha</translation>
    </message>
</context>
<context>
    <name>kelu::PaintReminder</name>
    <message>
        <source>Information</source>
        <translation>Información</translation>
    </message>
    <message>
        <source>You are ready to go! Simply apply the chosen effect by &apos;brushing&apos; over the image.<byte value="xd"/>
</source>
        <translation>¡Ya puede empezar! Aplique el efecto elegido «pintando» sobre la imagen.<byte value="xd"/>
</translation>
    </message>
    <message>
        <source>Don&apos;t Show This Again</source>
        <translation>No volver a mostrar</translation>
    </message>
</context>
<context>
    <name>kelu::PdfExport</name>
    <message>
        <source>Information</source>
        <translation>Información</translation>
    </message>
    <message>
        <source>PDF file &apos;%1&apos; created successfully!</source>
        <translation>¡El archivo PDF «%1» se ha creado!</translation>
    </message>
    <message>
        <source>View PDF File</source>
        <translation>Ver el archivo PDF</translation>
    </message>
</context>
<context>
    <name>kelu::Picture</name>
    <message>
        <source>Not enough memory for this effect</source>
        <translation>No hay memoria suficiente para este efecto</translation>
    </message>
    <message>
        <source>There is no picture to save</source>
        <translation>No hay ninguna imagen que guardar</translation>
    </message>
    <message>
        <source>Invalid picture size</source>
        <translation>Tamaño de imagen no válido</translation>
    </message>
    <message>
        <source>Nothing to undo</source>
        <translation>Nada que deshacer</translation>
    </message>
    <message>
        <source>Nothing to redo</source>
        <translation>Nada que rehacer</translation>
    </message>
    <message>
        <source>The picture cannot be read: %1</source>
        <translation>No se puede leer la imagen: %1</translation>
    </message>
    <message>
        <source>What reads %1 files is not installed</source>
        <translation>No está instalado lo que lee archivos %1</translation>
    </message>
    <message>
        <source>This kind of compression is not known</source>
        <translation>Este tipo de compresión no se conoce</translation>
    </message>
    <message>
        <source>The picture is too large for a GIF file</source>
        <translation>La imagen es demasiado grande para un archivo GIF</translation>
    </message>
    <message>
        <source>The picture is too large for a JPEG file</source>
        <translation>La imagen es demasiado grande para un archivo JPEG</translation>
    </message>
    <message>
        <source>The picture is too large for a WebP file</source>
        <translation>La imagen es demasiado grande para un archivo WebP</translation>
    </message>
    <message>
        <source>The picture has no pixels</source>
        <translation>La imagen no tiene píxeles</translation>
    </message>
    <message>
        <source>The picture is too large: %1 x %2 pixels</source>
        <translation>La imagen es demasiado grande: %1 x %2 píxeles</translation>
    </message>
    <message>
        <source>Not enough memory for a picture of %1 x %2 pixels</source>
        <translation>No hay memoria suficiente para una imagen de %1 x %2 píxeles</translation>
    </message>
    <message>
        <source>This is a folder</source>
        <translation>Esto es una carpeta</translation>
    </message>
    <message>
        <source>This is not a regular file</source>
        <translation>Esto no es un archivo normal</translation>
    </message>
    <message>
        <source>This is not a picture of a known format</source>
        <translation>Esto no es una imagen de un formato conocido</translation>
    </message>
    <message>
        <source>The picture file is too large</source>
        <translation>El archivo de imagen es demasiado grande</translation>
    </message>
    <message>
        <source>This kind of %1 file is not known</source>
        <translation>Este tipo de archivo %1 no se conoce</translation>
    </message>
    <message>
        <source>Not enough memory for this picture</source>
        <translation>No hay memoria suficiente para esta imagen</translation>
    </message>
    <message>
        <source>The extension tells no picture format that can be written</source>
        <translation>La extensión no indica un formato de imagen que se pueda escribir</translation>
    </message>
    <message>
        <source>There is no picture</source>
        <translation>No hay ninguna imagen</translation>
    </message>
    <message>
        <source>Not enough memory to write this picture</source>
        <translation>No hay memoria suficiente para escribir esta imagen</translation>
    </message>
    <message>
        <source>%1 Files (*.%2)</source>
        <translation>Archivos %1 (*.%2)</translation>
    </message>
    <message>
        <source>The picture file is cut short</source>
        <translation>El archivo de imagen está cortado</translation>
    </message>
    <message>
        <source>The picture file is damaged</source>
        <translation>El archivo de imagen está dañado</translation>
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
    <name>kelu::PrintService</name>
    <message>
        <source>The print server does not answer</source>
        <translation>El servidor de impresión no responde</translation>
    </message>
    <message>
        <source>There is no printer &quot;%1&quot;</source>
        <translation>No hay ninguna impresora «%1»</translation>
    </message>
</context>
<context>
    <name>kelu::Recipe</name>
    <message>
        <source>it opens no picture</source>
        <translation>no abre ninguna imagen</translation>
    </message>
    <message>
        <source>The file is too large for a recipe</source>
        <translation>El archivo es demasiado grande para una receta</translation>
    </message>
    <message>
        <source>The recipe can&apos;t be read: </source>
        <translation>No se puede leer la receta: </translation>
    </message>
</context>
<context>
    <name>kelu::RegistryFile</name>
    <message>
        <source>another program holds it</source>
        <translation>otro programa lo está usando</translation>
    </message>
    <message>
        <source>the folder %1 can&apos;t be made</source>
        <translation>no se puede crear la carpeta %1</translation>
    </message>
</context>
<context>
    <name>kelu::Replay</name>
    <message>
        <source>The picture is %1 pixels large, the recipe was made for %2</source>
        <translation>La imagen mide %1 píxeles, la receta se hizo para %2</translation>
    </message>
    <message>
        <source>&apos;%1&apos; is not there any more</source>
        <translation>«%1» ya no está</translation>
    </message>
    <message>
        <source>&apos;%1&apos; has changed since</source>
        <translation>«%1» ha cambiado desde entonces</translation>
    </message>
</context>
<context>
    <name>kelu::SaveFileDialog</name>
    <message>
        <source>Confirm</source>
        <translation>Confirmar</translation>
    </message>
    <message>
        <source>&apos;%1&apos; is there already.<byte value="xd"/>
<byte value="xd"/>
Replace it?</source>
        <translation>«%1» ya existe.<byte value="xd"/>
<byte value="xd"/>
¿Reemplazar?</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Guardar</translation>
    </message>
</context>
<context>
    <name>kelu::SaveMenu</name>
    <message>
        <source>Save the recipe...</source>
        <translation>Guardar la receta...</translation>
    </message>
    <message>
        <source>Save as it grew...</source>
        <translation>Guardar cómo creció...</translation>
    </message>
    <message>
        <source>Save the Recipe</source>
        <translation>Guardar la receta</translation>
    </message>
    <message>
        <source>Recipes (*.kelu)</source>
        <translation>Recetas (*.kelu)</translation>
    </message>
    <message>
        <source>Save as It Grew</source>
        <translation>Guardar cómo creció</translation>
    </message>
    <message>
        <source>GIF Files (*.gif)</source>
        <translation>Archivos GIF (*.gif)</translation>
    </message>
</context>
<context>
    <name>kelu::SessionReplay</name>
    <message>
        <source>Bring back</source>
        <translation>Recuperar</translation>
    </message>
    <message>
        <source>Kelu ended while &apos;%1&apos; had unsaved strokes. Bring them back?</source>
        <translation>Kelu terminó cuando «%1» tenía trazos sin guardar. ¿Recuperarlos?</translation>
    </message>
    <message>
        <source>another version of Kelu made them, with other effects</source>
        <translation>los hizo otra versión de Kelu, con otros efectos</translation>
    </message>
    <message>
        <source>The record of &apos;%1&apos; was damaged at its end. What stood before that is back.</source>
        <translation>El registro de «%1» estaba dañado al final. Lo anterior se ha recuperado.</translation>
    </message>
    <message>
        <source>The strokes on &apos;%1&apos; can&apos;t be brought back: %2.</source>
        <translation>No se pueden recuperar los trazos de «%1»: %2.</translation>
    </message>
</context>
<context>
    <name>kelu::SmtpSender</name>
    <message>
        <source>The mail domain &quot;%1&quot; does not exist</source>
        <translation>El dominio de correo «%1» no existe</translation>
    </message>
    <message>
        <source>The mail server of &quot;%1&quot; could not be found: %2</source>
        <translation>No se encontró el servidor de correo de «%1»: %2</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no mail address</source>
        <translation>«%1» no es una dirección de correo</translation>
    </message>
    <message>
        <source>The mail domain &quot;%1&quot; accepts no mail</source>
        <translation>El dominio de correo «%1» no acepta correo</translation>
    </message>
    <message>
        <source>A message is being sent already</source>
        <translation>Ya se está enviando un mensaje</translation>
    </message>
    <message>
        <source>The mail server does not answer</source>
        <translation>El servidor de correo no responde</translation>
    </message>
    <message>
        <source>The message has no recipient</source>
        <translation>El mensaje no tiene destinatario</translation>
    </message>
    <message>
        <source>No mail server is known</source>
        <translation>No se conoce ningún servidor de correo</translation>
    </message>
    <message>
        <source>Sending was cancelled</source>
        <translation>Se canceló el envío</translation>
    </message>
</context>
<context>
    <name>kelu::TemporaryFolder</name>
    <message>
        <source>There is no folder for temporary files</source>
        <translation>No hay carpeta para archivos temporales</translation>
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
    <name>kelu::ValueBar</name>
    <message>
        <source>Brightness</source>
        <translation>Brillo</translation>
    </message>
</context>
<context>
    <name>kelu::XP_ProgressBar</name>
    <message>
        <source>Progress</source>
        <translation>Progreso</translation>
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
    <name>kelu::frmEmail</name>
    <message>
        <source>E-mail</source>
        <translation>Correo</translation>
    </message>
    <message>
        <source>Send</source>
        <translation>Enviar</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>E-mail Image</source>
        <translation>Enviar la imagen</translation>
    </message>
    <message>
        <source>From</source>
        <translation>De</translation>
    </message>
    <message>
        <source>To</source>
        <translation>Para</translation>
    </message>
    <message>
        <source>Subject</source>
        <translation>Asunto</translation>
    </message>
    <message>
        <source>Message</source>
        <translation>Mensaje</translation>
    </message>
    <message>
        <source>E-Mail Image via Google Mail (TM)</source>
        <translation>Enviar la imagen por Google Mail (TM)</translation>
    </message>
    <message>
        <source>CC (Courtesy Copy)</source>
        <translation>CC (copia)</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Error</translation>
    </message>
    <message>
        <source>The following error(s) have occured:<byte value="xd"/>
<byte value="xd"/>
No e-mail address or an invalid e-mail address has been entered.<byte value="xd"/>
</source>
        <translation>Se han producido errores:<byte value="xd"/>
<byte value="xd"/>
No se ha escrito ninguna dirección de correo, o no es válida.<byte value="xd"/>
</translation>
    </message>
    <message>
        <source>Information</source>
        <translation>Información</translation>
    </message>
    <message>
        <source>E-mail Sent!<byte value="xd"/>
</source>
        <translation>¡Correo enviado!<byte value="xd"/>
</translation>
    </message>
    <message>
        <source>Waiting for the mail server</source>
        <translation>Esperando al servidor de correo</translation>
    </message>
    <message>
        <source>The e-mail is on its way: send it from your mail program</source>
        <translation>El correo está en camino: envíelo desde su programa de correo</translation>
    </message>
    <message>
        <source>The e-mail is on its way to %1</source>
        <translation>El correo está en camino a %1</translation>
    </message>
</context>
<context>
    <name>kelu::frmMain</name>
    <message>
        <source>The inputs have changed: Apply to paint with them</source>
        <translation>Los ajustes han cambiado: Apply para pintar con ellos</translation>
    </message>
    <message>
        <source>Apply</source>
        <translation>Aplicar</translation>
    </message>
    <message>
        <source>What you paint can&apos;t be recovered after a crash: %1</source>
        <translation>Lo que pinte no se podrá recuperar tras un fallo: %1</translation>
    </message>
    <message>
        <source>The strokes on &apos;%1&apos; were not saved</source>
        <translation>Los trazos de «%1» no se guardaron</translation>
    </message>
    <message>
        <source>Bring back</source>
        <translation>Recuperar</translation>
    </message>
    <message>
        <source>Not enough memory for this effect on this picture</source>
        <translation>No hay memoria suficiente para este efecto en esta imagen</translation>
    </message>
    <message>
        <source>There is no picture to paste</source>
        <translation>No hay ninguna imagen que pegar</translation>
    </message>
</context>
<context>
    <name>kelu::frmOptions</name>
    <message>
        <source>E-mail</source>
        <translation>Correo</translation>
    </message>
    <message>
        <source>E-Mail</source>
        <translation>Correo</translation>
    </message>
    <message>
        <source>Cursor</source>
        <translation>Cursor</translation>
    </message>
    <message>
        <source>Warnings</source>
        <translation>Avisos</translation>
    </message>
    <message>
        <source>Warnings &amp;&amp; Reminders</source>
        <translation>Avisos y recordatorios</translation>
    </message>
    <message>
        <source>Resize</source>
        <translation>Tamaño</translation>
    </message>
    <message>
        <source>Image Resizing</source>
        <translation>Reducir imágenes</translation>
    </message>
    <message>
        <source>Capture Devices</source>
        <translation>Cámaras</translation>
    </message>
    <message>
        <source>SFX Selector</source>
        <translation>Efectos</translation>
    </message>
    <message>
        <source>Special Effects Selector</source>
        <translation>Selector de efectos</translation>
    </message>
    <message>
        <source>Use Kelu Internal E-Mail</source>
        <translation>Usar el correo propio de Kelu</translation>
    </message>
    <message>
        <source>Use Default E-mail Client (E.g. Outlook®, Outlook Express®)</source>
        <translation>Usar el programa de correo (p. ej. Outlook®, Outlook Express®)</translation>
    </message>
    <message>
        <source>Use Google Mail (tm)</source>
        <translation>Usar Google Mail (tm)</translation>
    </message>
    <message>
        <source>Brush</source>
        <translation>Pincel</translation>
    </message>
    <message>
        <source>Smudge</source>
        <translation>Dedo</translation>
    </message>
    <message>
        <source>Cross</source>
        <translation>Cruz</translation>
    </message>
    <message>
        <source>Mask Password</source>
        <translation>Ocultar la contraseña</translation>
    </message>
    <message>
        <source>Show Reminders</source>
        <translation>Mostrar recordatorios</translation>
    </message>
    <message>
        <source>Resize very large images (Recommended)</source>
        <translation>Reducir imágenes muy grandes (recomendado)</translation>
    </message>
    <message>
        <source>Use Visual Special Effects Selector</source>
        <translation>Elegir los efectos por imágenes</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>Aceptar</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Ayuda</translation>
    </message>
    <message>
        <source>About...</source>
        <translation>Acerca de...</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Ajustes</translation>
    </message>
    <message>
        <source>User Name</source>
        <translation>Usuario</translation>
    </message>
    <message>
        <source>Password</source>
        <translation>Contraseña</translation>
    </message>
    <message>
        <source>Pictures wider than 2048 pixels open 800 wide, portraits higher than 1536 open 600 wide. Without it pictures keep their full size.</source>
        <translation>Las imágenes de más de 2048 píxeles de ancho se abren a 800 de ancho, las verticales de más de 1536 de alto a 600. Sin ello conservan su tamaño completo.</translation>
    </message>
    <message>
        <source>No device found</source>
        <translation>No se encontró ningún dispositivo</translation>
    </message>
    <message>
        <source>Available Devices</source>
        <translation>Dispositivos disponibles</translation>
    </message>
    <message>
        <source>Capture Size (Pixels)</source>
        <translation>Tamaño de captura (píxeles)</translation>
    </message>
    <message>
        <source>This password can&apos;t be kept here: it has more than 9 characters, or characters such as ` ~ ü, and this desktop has no store of secrets for it.<byte value="xd"/>
</source>
        <translation>Esta contraseña no se puede guardar aquí: tiene más de 9 caracteres, o caracteres como ` ~ ü, y este escritorio no tiene un almacén de secretos.<byte value="xd"/>
</translation>
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
    <message>
        <source>The printer that was chosen last is not there any more</source>
        <translation>La impresora elegida la última vez ya no está</translation>
    </message>
    <message>
        <source>The printer &quot;%1&quot; is not there any more</source>
        <translation>La impresora «%1» ya no está</translation>
    </message>
    <message>
        <source>No printer is chosen</source>
        <translation>No se ha elegido ninguna impresora</translation>
    </message>
    <message>
        <source>Handing the page to &quot;%1&quot;</source>
        <translation>Entregando la página a «%1»</translation>
    </message>
</context>
</TS>
