<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr" sourcelanguage="en">
<context>
    <name>Commands</name>
    <message>
        <source>Open</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save</source>
        <translation type="unfinished">Enregistrer</translation>
    </message>
    <message>
        <source>E-mail</source>
        <translation type="unfinished">Courriel</translation>
    </message>
    <message>
        <source>Print</source>
        <translation type="unfinished">Imprimer</translation>
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
        <translation type="unfinished">Réglages</translation>
    </message>
    <message>
        <source>Help</source>
        <translation type="unfinished">Aide</translation>
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
        <translation type="unfinished">Fermer</translation>
    </message>
    <message>
        <source>Finish the capture first</source>
        <translation>Terminez d’abord la capture</translation>
    </message>
    <message>
        <source>Open a picture first</source>
        <translation>Ouvrez d’abord une image</translation>
    </message>
    <message>
        <source>This picture is saved: open it again to go on</source>
        <translation>Cette image est enregistrée : rouvrez-la pour continuer</translation>
    </message>
    <message>
        <source>Nothing is painted yet</source>
        <translation>Rien n’est encore peint</translation>
    </message>
    <message>
        <source>Choose an effect first</source>
        <translation>Choisissez d’abord un effet</translation>
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
        <translation type="unfinished">Luminosité</translation>
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
        <translation type="unfinished">Couleur</translation>
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
        <translation type="unfinished">Couleurs</translation>
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
        <translation>Confirmer</translation>
    </message>
    <message>
        <source>Save changes to &apos;%1&apos;?<byte value="xd"/>
</source>
        <translation>Enregistrer les modifications de « %1 » ?<byte value="xd"/>
</translation>
    </message>
    <message>
        <source>Made smaller, %1 to %2</source>
        <translation>Réduite de %1 à %2</translation>
    </message>
    <message>
        <source>Open in full size</source>
        <translation>Ouvrir en taille réelle</translation>
    </message>
    <message>
        <source>&apos;%1&apos; was made smaller when it was opened, from %2 to %3 pixels. Saved over it, its full size is lost.<byte value="xd"/>
<byte value="xd"/>
Save over it all the same?<byte value="xd"/>
</source>
        <translation>« %1 » a été réduite à l’ouverture, de %2 à %3 pixels. Si vous l’écrasez, sa taille réelle est perdue.<byte value="xd"/>
<byte value="xd"/>
L’écraser quand même ?<byte value="xd"/>
</translation>
    </message>
    <message>
        <source>Go on with it</source>
        <translation>Continuer avec elle</translation>
    </message>
    <message>
        <source>Show in folder</source>
        <translation>Afficher dans le dossier</translation>
    </message>
    <message>
        <source>Saved as %1</source>
        <translation>Enregistré sous %1</translation>
    </message>
</context>
<context>
    <name>PaintReminder</name>
    <message>
        <source>Hold Ctrl while you paint to bring the original back</source>
        <translation>Tenez Ctrl en peignant pour ramener l’original</translation>
    </message>
    <message>
        <source>The effect is ready to be painted</source>
        <translation>L’effet est prêt à être peint</translation>
    </message>
</context>
<context>
    <name>Painter</name>
    <message>
        <source>Nothing painted yet: choose an effect, Apply, then brush</source>
        <translation>Rien n’est peint : choisissez un effet, Apply, puis peignez</translation>
    </message>
</context>
<context>
    <name>SliderMenu</name>
    <message>
        <source>Last used: %1</source>
        <translation>Dernier : %1</translation>
    </message>
    <message>
        <source>Default: %1</source>
        <translation>Initial : %1</translation>
    </message>
</context>
<context>
    <name>kelu::AboutMessage</name>
    <message>
        <source>Copyright © 2026 Tarvane Design. Free under the MIT licence.</source>
        <translation>Copyright © 2026 Tarvane Design. Libre sous licence MIT.</translation>
    </message>
    <message>
        <source>Written by the people of Tarvane Design</source>
        <translation>Écrit par l’équipe de Tarvane Design</translation>
    </message>
    <message>
        <source>I would like to thank all the people who supported me during the development of Kelu. Those endless nights and the bottomless cups of coffee and music that got me going while I faced certain &apos;challanges&apos;.</source>
        <translation>Je remercie tous ceux qui m’ont soutenu pendant le développement de Kelu : ces nuits sans fin, ces tasses de café sans fond et la musique qui m’a porté face à certains « défis ».</translation>
    </message>
    <message>
        <source>I would like to thank Fathsoft for their invaluable help and also providing the excellant ImageX imaging component which Kelu is based on.</source>
        <translation>Je remercie Fathsoft pour son aide inestimable et pour l’excellent composant d’image ImageX sur lequel repose Kelu.</translation>
    </message>
    <message>
        <source>This program is dedicated to my little daughter.</source>
        <translation>Ce programme est dédié à ma petite fille.</translation>
    </message>
    <message>
        <source>I hope you enjoy this program and find it fun and useful.</source>
        <translation>J’espère que ce programme vous plaira et vous sera utile.</translation>
    </message>
    <message>
        <source>About Kelu...</source>
        <translation>À propos de Kelu...</translation>
    </message>
</context>
<context>
    <name>kelu::AtomicFile</name>
    <message>
        <source>the link leads nowhere</source>
        <translation>le lien ne mène nulle part</translation>
    </message>
    <message>
        <source>this is a folder</source>
        <translation>c’est un dossier</translation>
    </message>
    <message>
        <source>this is not a file</source>
        <translation>ce n’est pas un fichier</translation>
    </message>
    <message>
        <source>the file is read-only</source>
        <translation>le fichier est en lecture seule</translation>
    </message>
    <message>
        <source>the folder does not exist</source>
        <translation>le dossier n’existe pas</translation>
    </message>
    <message>
        <source>the folder cannot be written to</source>
        <translation>impossible d’écrire dans le dossier</translation>
    </message>
    <message>
        <source>already written</source>
        <translation>déjà écrit</translation>
    </message>
    <message>
        <source>the folder cannot be written to, and there is no room for a copy</source>
        <translation>impossible d’écrire dans le dossier, et il n’y a pas de place pour une copie</translation>
    </message>
    <message>
        <source>%1; the old file is kept as %2</source>
        <translation>%1 ; l’ancien fichier est conservé sous %2</translation>
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
        <translation>%1, doux %2 %</translation>
    </message>
</context>
<context>
    <name>kelu::CWinInetConnection</name>
    <message>
        <source>The operation timed out</source>
        <translation>Le délai est dépassé</translation>
    </message>
    <message>
        <source>The server name or address could not be resolved</source>
        <translation>Le nom ou l’adresse du serveur n’a pas pu être résolu</translation>
    </message>
    <message>
        <source>A connection with the server could not be established</source>
        <translation>La connexion au serveur n’a pas pu être établie</translation>
    </message>
    <message>
        <source>The connection with the Internet has been lost</source>
        <translation>La connexion à Internet est perdue</translation>
    </message>
</context>
<context>
    <name>kelu::CameraCapture</name>
    <message>
        <source>Unable to find a capture device!<byte value="xd"/>
This feature will be disabled.</source>
        <translation>Aucun périphérique de capture trouvé !<byte value="xd"/>
Cette fonction sera désactivée.</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Erreur</translation>
    </message>
    <message>
        <source>Invalid property value</source>
        <translation>Valeur de propriété incorrecte</translation>
    </message>
    <message>
        <source>The camera gives no picture.<byte value="xd"/>
%1.</source>
        <translation>La caméra ne donne aucune image.<byte value="xd"/>
%1.</translation>
    </message>
    <message>
        <source>Don&apos;t Show This Again</source>
        <translation>Ne plus afficher</translation>
    </message>
</context>
<context>
    <name>kelu::CanvasHand</name>
    <message>
        <source>Hold Ctrl and turn the wheel to zoom</source>
        <translation>Maintenez Ctrl et tournez la molette pour zoomer</translation>
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
        <translation>Couleur</translation>
    </message>
</context>
<context>
    <name>kelu::ColorPopup</name>
    <message>
        <source>Colors</source>
        <translation>Couleurs</translation>
    </message>
    <message>
        <source>Hexadecimal color</source>
        <translation>Couleur hexadécimale</translation>
    </message>
    <message>
        <source>Red</source>
        <translation>Rouge</translation>
    </message>
    <message>
        <source>Green</source>
        <translation>Vert</translation>
    </message>
    <message>
        <source>Blue</source>
        <translation>Bleu</translation>
    </message>
</context>
<context>
    <name>kelu::CommandLook</name>
    <message>
        <source>Nothing to undo</source>
        <translation>Rien à annuler</translation>
    </message>
    <message>
        <source>Nothing to redo</source>
        <translation>Rien à rétablir</translation>
    </message>
    <message>
        <source>not applied yet</source>
        <translation>pas encore appliqué</translation>
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
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reading the folder...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No pictures in this folder</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>You have no right to look into this folder</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This folder can&apos;t be read</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>kelu::FilmDialog</name>
    <message>
        <source>Save...</source>
        <translation>Enregistrer...</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>As It Grew</source>
        <translation>Son évolution</translation>
    </message>
    <message>
        <source>The film</source>
        <translation>Le film</translation>
    </message>
    <message>
        <source>%1 × %2 pixels, %3</source>
        <translation>%1 × %2 pixels, %3</translation>
    </message>
</context>
<context>
    <name>kelu::FolderCombo</name>
    <message>
        <source>Path</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>kelu::FolderModel</name>
    <message>
        <source>Name</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Size</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Type</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Date</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>kelu::GstStream</name>
    <message>
        <source>The camera is in use by another program</source>
        <translation>La caméra est utilisée par un autre programme</translation>
    </message>
    <message>
        <source>This user may not use the camera</source>
        <translation>Cet utilisateur n’a pas le droit d’utiliser la caméra</translation>
    </message>
    <message>
        <source>The camera was disconnected</source>
        <translation>La caméra a été déconnectée</translation>
    </message>
    <message>
        <source>The camera can&apos;t be opened</source>
        <translation>La caméra ne peut pas être ouverte</translation>
    </message>
    <message>
        <source>GStreamer lacks its part &quot;%1&quot;</source>
        <translation>Il manque à GStreamer l’élément « %1 »</translation>
    </message>
    <message>
        <source>The camera sends a picture format that is not known here</source>
        <translation>La caméra envoie un format d’image inconnu ici</translation>
    </message>
    <message>
        <source>The camera sends pictures that can&apos;t be read</source>
        <translation>La caméra envoie des images illisibles</translation>
    </message>
</context>
<context>
    <name>kelu::GstVideoCapX</name>
    <message>
        <source>Invalid property value</source>
        <translation>Valeur de propriété incorrecte</translation>
    </message>
    <message>
        <source>There is no capture device</source>
        <translation>Il n’y a pas de périphérique de capture</translation>
    </message>
    <message>
        <source>The camera was disconnected</source>
        <translation>La caméra a été déconnectée</translation>
    </message>
    <message>
        <source>The camera does not send any picture</source>
        <translation>La caméra n’envoie aucune image</translation>
    </message>
</context>
<context>
    <name>kelu::Help</name>
    <message>
        <source>&lt;b&gt;Open&lt;/b&gt; a picture with Ctrl+O, or drop one onto the window.</source>
        <translation>&lt;b&gt;Ouvrez&lt;/b&gt; une image avec Ctrl+O, ou déposez-en une sur la fenêtre.</translation>
    </message>
    <message>
        <source>Choose an effect at the right and set its inputs. &lt;b&gt;Apply&lt;/b&gt; renders it over a hidden copy of your picture.</source>
        <translation>Choisissez un effet à droite et réglez-le. &lt;b&gt;Apply&lt;/b&gt; le calcule sur une copie cachée de votre image.</translation>
    </message>
    <message>
        <source>&lt;b&gt;Paint&lt;/b&gt; with the left mouse button. The first slider sets the size of the brush.</source>
        <translation>&lt;b&gt;Peignez&lt;/b&gt; avec le bouton gauche de la souris. Le premier curseur règle la taille du pinceau.</translation>
    </message>
    <message>
        <source>Not good? Ctrl+Z takes a stroke back, Ctrl+Y brings it again. Ctrl+S &lt;b&gt;saves&lt;/b&gt; the picture.</source>
        <translation>Pas réussi ? Ctrl+Z retire un trait, Ctrl+Y le remet. Ctrl+S &lt;b&gt;enregistre&lt;/b&gt; l’image.</translation>
    </message>
    <message>
        <source>Have fun with effects</source>
        <translation>Amusez-vous avec les effets</translation>
    </message>
    <message>
        <source>Open a photo, choose an effect, press &lt;b&gt;Apply&lt;/b&gt; - and brush it on where you like it.</source>
        <translation>Ouvrez une photo, choisissez un effet, appuyez sur &lt;b&gt;Apply&lt;/b&gt; – et peignez-le où il vous plaît.</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Réglages</translation>
    </message>
    <message>
        <source>All effects</source>
        <translation>Tous les effets</translation>
    </message>
    <message>
        <source>All effects stand below. What hands can do is told under %1, how to set up the program under %2.</source>
        <translation>Tous les effets sont ci-dessous. Ce que les mains peuvent faire est expliqué sous %1, le réglage du programme sous %2.</translation>
    </message>
    <message>
        <source>Mouse and keys</source>
        <translation>Souris et touches</translation>
    </message>
</context>
<context>
    <name>kelu::HelpBrowser</name>
    <message>
        <source>Help page</source>
        <translation>Page d’aide</translation>
    </message>
    <message>
        <source>This page is missing</source>
        <translation>Cette page manque</translation>
    </message>
    <message>
        <source>&lt;p&gt;The help has no page called &lt;b&gt;%1&lt;/b&gt;. It should lie here:&lt;/p&gt;&lt;p class=&quot;note&quot;&gt;%2&lt;/p&gt;&lt;p&gt;Perhaps the program was moved without its &lt;b&gt;help&lt;/b&gt; folder. Putting the folder back beside the program, or installing Kelu again, brings the page back.&lt;/p&gt;</source>
        <translation>&lt;p&gt;L’aide n’a pas de page nommée &lt;b&gt;%1&lt;/b&gt;. Elle devrait se trouver ici :&lt;/p&gt;&lt;p class=&quot;note&quot;&gt;%2&lt;/p&gt;&lt;p&gt;Le programme a peut-être été déplacé sans son dossier &lt;b&gt;help&lt;/b&gt;. Remettez le dossier à côté du programme, ou réinstallez Kelu, et la page reviendra.&lt;/p&gt;</translation>
    </message>
    <message>
        <source>Nothing found</source>
        <translation>Rien trouvé</translation>
    </message>
    <message>
        <source>&lt;p&gt;No page holds &lt;b&gt;%1&lt;/b&gt;. Fewer words or the beginning of a word find more; or have a look at &lt;a href=&quot;%2&quot;&gt;all effects&lt;/a&gt;.&lt;/p&gt;</source>
        <translation>&lt;p&gt;Aucune page ne contient &lt;b&gt;%1&lt;/b&gt;. Moins de mots, ou le début d’un mot, trouvent davantage ; ou voyez &lt;a href=&quot;%2&quot;&gt;tous les effets&lt;/a&gt;.&lt;/p&gt;</translation>
    </message>
    <message>
        <source>One page for &lt;b&gt;%1&lt;/b&gt;</source>
        <translation>Une page pour &lt;b&gt;%1&lt;/b&gt;</translation>
    </message>
    <message>
        <source>%2 pages for &lt;b&gt;%1&lt;/b&gt;</source>
        <translation>%2 pages pour &lt;b&gt;%1&lt;/b&gt;</translation>
    </message>
    <message>
        <source>Found</source>
        <translation>Trouvé</translation>
    </message>
</context>
<context>
    <name>kelu::HelpWindow</name>
    <message>
        <source>Back (Alt+Left)</source>
        <translation>Retour (Alt+Gauche)</translation>
    </message>
    <message>
        <source>Forward (Alt+Right)</source>
        <translation>Suivant (Alt+Droite)</translation>
    </message>
    <message>
        <source>All effects (Alt+Home)</source>
        <translation>Tous les effets (Alt+Origine)</translation>
    </message>
    <message>
        <source>Kelu Help</source>
        <translation>Aide de Kelu</translation>
    </message>
    <message>
        <source>Drag to change the size</source>
        <translation>Tirez pour changer la taille</translation>
    </message>
    <message>
        <source>Kelu Help - </source>
        <translation>Aide de Kelu - </translation>
    </message>
    <message>
        <source>Search all pages</source>
        <translation>Chercher dans toutes les pages</translation>
    </message>
</context>
<context>
    <name>kelu::History</name>
    <message>
        <source>Showing the original</source>
        <translation>L’original est affiché</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Retour</translation>
    </message>
</context>
<context>
    <name>kelu::HueField</name>
    <message>
        <source>Hue and saturation</source>
        <translation>Teinte et saturation</translation>
    </message>
    <message>
        <source>Hue %1, saturation %2</source>
        <translation>Teinte %1, saturation %2</translation>
    </message>
</context>
<context>
    <name>kelu::ImageX</name>
    <message>
        <source>Picture</source>
        <translation>Image</translation>
    </message>
</context>
<context>
    <name>kelu::Journal</name>
    <message>
        <source>the folder %1 can&apos;t be made</source>
        <translation>le dossier %1 ne peut pas être créé</translation>
    </message>
    <message>
        <source>The brush of the picture before, which painted here, could not be kept</source>
        <translation>Le pinceau de l&apos;image précédente, qui a peint ici, n&apos;a pas pu être conservé</translation>
    </message>
</context>
<context>
    <name>kelu::Language</name>
    <message>
        <source>ID</source>
        <comment>value of the setting</comment>
        <extracomment>The text of the setting &quot;ID&quot; that chooses this language, one that no other language has.</extracomment>
        <translation>3</translation>
    </message>
</context>
<context>
    <name>kelu::ListEx</name>
    <message>
        <source>Invalid property value</source>
        <translation>Valeur de propriété incorrecte</translation>
    </message>
</context>
<context>
    <name>kelu::MailClient</name>
    <message>
        <source>This desktop has no way to open a mail program (xdg-email)</source>
        <translation>Ce bureau ne sait pas ouvrir un programme de courrier (xdg-email)</translation>
    </message>
    <message>
        <source>Sending was cancelled</source>
        <translation>L’envoi a été annulé</translation>
    </message>
    <message>
        <source>The mail program could not be opened</source>
        <translation>Le programme de courrier n’a pas pu être ouvert</translation>
    </message>
    <message>
        <source>%1: the file is missing</source>
        <translation>%1 : le fichier manque</translation>
    </message>
    <message>
        <source>No mail program is set up on this system</source>
        <translation>Aucun programme de courrier n’est configuré sur ce système</translation>
    </message>
</context>
<context>
    <name>kelu::MailMessage</name>
    <message>
        <source>&quot;%1&quot; is no mail address</source>
        <translation>« %1 » n’est pas une adresse de courrier</translation>
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
        <translation type="unfinished">Image</translation>
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
        <translation>&amp;Oui</translation>
    </message>
    <message>
        <source>&amp;No</source>
        <translation>&amp;Non</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>kelu::MsgDialog</name>
    <message>
        <source>Out of memory</source>
        <translation>Mémoire insuffisante</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Erreur</translation>
    </message>
    <message>
        <source>The following error has occured:<byte value="xd"/>
%1 (%2)<byte value="xd"/>
</source>
        <translation>L’erreur suivante s’est produite :<byte value="xd"/>
%1 (%2)<byte value="xd"/>
</translation>
    </message>
</context>
<context>
    <name>kelu::OfferedPicture</name>
    <message>
        <source>The other program did not give the picture that it offers</source>
        <translation>L’autre programme n’a pas donné l’image qu’il propose</translation>
    </message>
</context>
<context>
    <name>kelu::Pager</name>
    <message>
        <source>Scroll up</source>
        <translation>Défiler vers le haut</translation>
    </message>
    <message>
        <source>Scroll left</source>
        <translation>Défiler vers la gauche</translation>
    </message>
    <message>
        <source>Scroll down</source>
        <translation>Défiler vers le bas</translation>
    </message>
    <message>
        <source>Scroll right</source>
        <translation>Défiler vers la droite</translation>
    </message>
</context>
<context>
    <name>kelu::PaintReminder</name>
    <message>
        <source>Information</source>
        <translation>Information</translation>
    </message>
    <message>
        <source>You are ready to go! Simply apply the chosen effect by &apos;brushing&apos; over the image.<byte value="xd"/>
</source>
        <translation>C’est parti ! Appliquez l’effet choisi en « peignant » sur l’image.<byte value="xd"/>
</translation>
    </message>
    <message>
        <source>Don&apos;t Show This Again</source>
        <translation>Ne plus afficher</translation>
    </message>
</context>
<context>
    <name>kelu::PdfExport</name>
    <message>
        <source>Information</source>
        <translation>Information</translation>
    </message>
    <message>
        <source>PDF file &apos;%1&apos; created successfully!</source>
        <translation>Le fichier PDF « %1 » a été créé !</translation>
    </message>
    <message>
        <source>View PDF File</source>
        <translation>Voir le fichier PDF</translation>
    </message>
</context>
<context>
    <name>kelu::Picture</name>
    <message>
        <source>Not enough memory for this effect</source>
        <translation>Mémoire insuffisante pour cet effet</translation>
    </message>
    <message>
        <source>There is no picture to save</source>
        <translation>Il n’y a pas d’image à enregistrer</translation>
    </message>
    <message>
        <source>Invalid picture size</source>
        <translation>Taille d’image incorrecte</translation>
    </message>
    <message>
        <source>Nothing to undo</source>
        <translation>Rien à annuler</translation>
    </message>
    <message>
        <source>Nothing to redo</source>
        <translation>Rien à rétablir</translation>
    </message>
    <message>
        <source>The picture cannot be read: %1</source>
        <translation>L’image ne peut pas être lue : %1</translation>
    </message>
    <message>
        <source>What reads %1 files is not installed</source>
        <translation>Ce qui lit les fichiers %1 n’est pas installé</translation>
    </message>
    <message>
        <source>This kind of compression is not known</source>
        <translation>Ce type de compression n’est pas connu</translation>
    </message>
    <message>
        <source>The picture is too large for a GIF file</source>
        <translation>L’image est trop grande pour un fichier GIF</translation>
    </message>
    <message>
        <source>The picture is too large for a JPEG file</source>
        <translation>L’image est trop grande pour un fichier JPEG</translation>
    </message>
    <message>
        <source>The picture is too large for a WebP file</source>
        <translation>L’image est trop grande pour un fichier WebP</translation>
    </message>
    <message>
        <source>The picture has no pixels</source>
        <translation>L’image n’a pas de pixels</translation>
    </message>
    <message>
        <source>The picture is too large: %1 x %2 pixels</source>
        <translation>L’image est trop grande : %1 x %2 pixels</translation>
    </message>
    <message>
        <source>Not enough memory for a picture of %1 x %2 pixels</source>
        <translation>Mémoire insuffisante pour une image de %1 x %2 pixels</translation>
    </message>
    <message>
        <source>This is a folder</source>
        <translation>C’est un dossier</translation>
    </message>
    <message>
        <source>This is not a regular file</source>
        <translation>Ce n’est pas un fichier ordinaire</translation>
    </message>
    <message>
        <source>This is not a picture of a known format</source>
        <translation>Ce n’est pas une image d’un format connu</translation>
    </message>
    <message>
        <source>The picture file is too large</source>
        <translation>Le fichier d’image est trop grand</translation>
    </message>
    <message>
        <source>This kind of %1 file is not known</source>
        <translation>Ce type de fichier %1 n’est pas connu</translation>
    </message>
    <message>
        <source>Not enough memory for this picture</source>
        <translation>Mémoire insuffisante pour cette image</translation>
    </message>
    <message>
        <source>The extension tells no picture format that can be written</source>
        <translation>L’extension n’indique aucun format d’image qui puisse être écrit</translation>
    </message>
    <message>
        <source>There is no picture</source>
        <translation>Il n’y a pas d’image</translation>
    </message>
    <message>
        <source>Not enough memory to write this picture</source>
        <translation>Mémoire insuffisante pour écrire cette image</translation>
    </message>
    <message>
        <source>%1 Files (*.%2)</source>
        <translation>Fichiers %1 (*.%2)</translation>
    </message>
    <message>
        <source>The picture file is cut short</source>
        <translation>Le fichier d’image est tronqué</translation>
    </message>
    <message>
        <source>The picture file is damaged</source>
        <translation>Le fichier d’image est endommagé</translation>
    </message>
</context>
<context>
    <name>kelu::Places</name>
    <message>
        <source>Home</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pictures</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Documents</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Computer</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>kelu::PrintService</name>
    <message>
        <source>The print server does not answer</source>
        <translation>Le serveur d’impression ne répond pas</translation>
    </message>
    <message>
        <source>There is no printer &quot;%1&quot;</source>
        <translation>Il n’y a pas d’imprimante « %1 »</translation>
    </message>
</context>
<context>
    <name>kelu::Recipe</name>
    <message>
        <source>it opens no picture</source>
        <translation>elle n’ouvre aucune image</translation>
    </message>
    <message>
        <source>The file is too large for a recipe</source>
        <translation>Le fichier est trop grand pour une recette</translation>
    </message>
    <message>
        <source>The recipe can&apos;t be read: </source>
        <translation>La recette ne peut pas être lue : </translation>
    </message>
</context>
<context>
    <name>kelu::RegistryFile</name>
    <message>
        <source>another program holds it</source>
        <translation>un autre programme le retient</translation>
    </message>
    <message>
        <source>the folder %1 can&apos;t be made</source>
        <translation>le dossier %1 ne peut pas être créé</translation>
    </message>
</context>
<context>
    <name>kelu::Replay</name>
    <message>
        <source>The picture is %1 pixels large, the recipe was made for %2</source>
        <translation>L’image mesure %1 pixels, la recette a été faite pour %2</translation>
    </message>
    <message>
        <source>&apos;%1&apos; is not there any more</source>
        <translation>« %1 » n’est plus là</translation>
    </message>
    <message>
        <source>&apos;%1&apos; has changed since</source>
        <translation>« %1 » a changé depuis</translation>
    </message>
</context>
<context>
    <name>kelu::SaveFileDialog</name>
    <message>
        <source>Confirm</source>
        <translation>Confirmer</translation>
    </message>
    <message>
        <source>&apos;%1&apos; is there already.<byte value="xd"/>
<byte value="xd"/>
Replace it?</source>
        <translation>« %1 » existe déjà.<byte value="xd"/>
<byte value="xd"/>
Remplacer ?</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Enregistrer</translation>
    </message>
</context>
<context>
    <name>kelu::SaveMenu</name>
    <message>
        <source>Save the recipe...</source>
        <translation>Enregistrer la recette...</translation>
    </message>
    <message>
        <source>Save as it grew...</source>
        <translation>Enregistrer son évolution...</translation>
    </message>
    <message>
        <source>Save the Recipe</source>
        <translation>Enregistrer la recette</translation>
    </message>
    <message>
        <source>Recipes (*.kelu)</source>
        <translation>Recettes (*.kelu)</translation>
    </message>
    <message>
        <source>Save as It Grew</source>
        <translation>Enregistrer son évolution</translation>
    </message>
    <message>
        <source>GIF Files (*.gif)</source>
        <translation>Fichiers GIF (*.gif)</translation>
    </message>
</context>
<context>
    <name>kelu::SessionReplay</name>
    <message>
        <source>Bring back</source>
        <translation>Récupérer</translation>
    </message>
    <message>
        <source>Kelu ended while &apos;%1&apos; had unsaved strokes. Bring them back?</source>
        <translation>Kelu s’est terminé alors que « %1 » avait des traits non enregistrés. Les récupérer ?</translation>
    </message>
    <message>
        <source>another version of Kelu made them, with other effects</source>
        <translation>une autre version de Kelu les a faits, avec d’autres effets</translation>
    </message>
    <message>
        <source>The record of &apos;%1&apos; was damaged at its end. What stood before that is back.</source>
        <translation>Le journal de « %1 » était endommagé à la fin. Ce qui précédait est récupéré.</translation>
    </message>
    <message>
        <source>The strokes on &apos;%1&apos; can&apos;t be brought back: %2.</source>
        <translation>Les traits sur « %1 » ne peuvent pas être récupérés : %2.</translation>
    </message>
</context>
<context>
    <name>kelu::SmtpSender</name>
    <message>
        <source>The mail domain &quot;%1&quot; does not exist</source>
        <translation>Le domaine de courrier « %1 » n’existe pas</translation>
    </message>
    <message>
        <source>The mail server of &quot;%1&quot; could not be found: %2</source>
        <translation>Le serveur de courrier de « %1 » est introuvable : %2</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no mail address</source>
        <translation>« %1 » n’est pas une adresse de courrier</translation>
    </message>
    <message>
        <source>The mail domain &quot;%1&quot; accepts no mail</source>
        <translation>Le domaine de courrier « %1 » n’accepte pas de courrier</translation>
    </message>
    <message>
        <source>A message is being sent already</source>
        <translation>Un message est déjà en cours d’envoi</translation>
    </message>
    <message>
        <source>The mail server does not answer</source>
        <translation>Le serveur de courrier ne répond pas</translation>
    </message>
    <message>
        <source>The message has no recipient</source>
        <translation>Le message n’a pas de destinataire</translation>
    </message>
    <message>
        <source>No mail server is known</source>
        <translation>Aucun serveur de courrier n’est connu</translation>
    </message>
    <message>
        <source>Sending was cancelled</source>
        <translation>L’envoi a été annulé</translation>
    </message>
</context>
<context>
    <name>kelu::TemporaryFolder</name>
    <message>
        <source>There is no folder for temporary files</source>
        <translation>Il n’y a pas de dossier pour les fichiers temporaires</translation>
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
    <name>kelu::ValueBar</name>
    <message>
        <source>Brightness</source>
        <translation>Luminosité</translation>
    </message>
</context>
<context>
    <name>kelu::XP_ProgressBar</name>
    <message>
        <source>Progress</source>
        <translation>Progression</translation>
    </message>
</context>
<context>
    <name>kelu::frmBrowse</name>
    <message>
        <source>Open</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>My Pictures</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Gallery</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>My Documents</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>My Computer</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Large Icons</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Small Icons</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>List</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Details</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Thumbnails</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>OK</source>
        <translation type="unfinished">OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation type="unfinished">Annuler</translation>
    </message>
    <message>
        <source>Look in:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Back one folder</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Move up one folder</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Views</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>There is no folder and no picture &quot;%1&quot;</source>
        <translation>Il n’y a ni dossier ni image « %1 »</translation>
    </message>
</context>
<context>
    <name>kelu::frmEmail</name>
    <message>
        <source>E-mail</source>
        <translation>Courriel</translation>
    </message>
    <message>
        <source>Send</source>
        <translation>Envoyer</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>E-mail Image</source>
        <translation>Envoyer l’image</translation>
    </message>
    <message>
        <source>From</source>
        <translation>De</translation>
    </message>
    <message>
        <source>To</source>
        <translation>À</translation>
    </message>
    <message>
        <source>Subject</source>
        <translation>Objet</translation>
    </message>
    <message>
        <source>Message</source>
        <translation>Message</translation>
    </message>
    <message>
        <source>E-Mail Image via Google Mail (TM)</source>
        <translation>Envoyer l’image par Google Mail (TM)</translation>
    </message>
    <message>
        <source>CC (Courtesy Copy)</source>
        <translation>CC (copie)</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Erreur</translation>
    </message>
    <message>
        <source>The following error(s) have occured:<byte value="xd"/>
<byte value="xd"/>
No e-mail address or an invalid e-mail address has been entered.<byte value="xd"/>
</source>
        <translation>Des erreurs se sont produites :<byte value="xd"/>
<byte value="xd"/>
Aucune adresse de courriel, ou une adresse incorrecte, a été saisie.<byte value="xd"/>
</translation>
    </message>
    <message>
        <source>Information</source>
        <translation>Information</translation>
    </message>
    <message>
        <source>E-mail Sent!<byte value="xd"/>
</source>
        <translation>Courriel envoyé !<byte value="xd"/>
</translation>
    </message>
    <message>
        <source>Waiting for the mail server</source>
        <translation>En attente du serveur de courrier</translation>
    </message>
    <message>
        <source>The e-mail is on its way: send it from your mail program</source>
        <translation>Le courriel est prêt : envoyez-le depuis votre programme de courrier</translation>
    </message>
    <message>
        <source>The e-mail is on its way to %1</source>
        <translation>Le courriel est en route vers %1</translation>
    </message>
</context>
<context>
    <name>kelu::frmMain</name>
    <message>
        <source>The inputs have changed: Apply to paint with them</source>
        <translation>Les réglages ont changé : Apply pour peindre avec eux</translation>
    </message>
    <message>
        <source>Apply</source>
        <translation>Appliquer</translation>
    </message>
    <message>
        <source>What you paint can&apos;t be recovered after a crash: %1</source>
        <translation>Ce que vous peignez ne pourra pas être récupéré après une panne : %1</translation>
    </message>
    <message>
        <source>The strokes on &apos;%1&apos; were not saved</source>
        <translation>Les traits sur « %1 » n’ont pas été enregistrés</translation>
    </message>
    <message>
        <source>Bring back</source>
        <translation>Récupérer</translation>
    </message>
    <message>
        <source>Not enough memory for this effect on this picture</source>
        <translation>Mémoire insuffisante pour cet effet sur cette image</translation>
    </message>
    <message>
        <source>There is no picture to paste</source>
        <translation>Il n’y a pas d’image à coller</translation>
    </message>
</context>
<context>
    <name>kelu::frmOptions</name>
    <message>
        <source>E-mail</source>
        <translation>Courriel</translation>
    </message>
    <message>
        <source>E-Mail</source>
        <translation>Courriel</translation>
    </message>
    <message>
        <source>Cursor</source>
        <translation>Pointeur</translation>
    </message>
    <message>
        <source>Warnings</source>
        <translation>Avertissements</translation>
    </message>
    <message>
        <source>Warnings &amp;&amp; Reminders</source>
        <translation>Avertissements et rappels</translation>
    </message>
    <message>
        <source>Resize</source>
        <translation>Taille</translation>
    </message>
    <message>
        <source>Image Resizing</source>
        <translation>Réduction des images</translation>
    </message>
    <message>
        <source>Capture Devices</source>
        <translation>Caméras</translation>
    </message>
    <message>
        <source>SFX Selector</source>
        <translation>Effets</translation>
    </message>
    <message>
        <source>Special Effects Selector</source>
        <translation>Sélecteur d’effets</translation>
    </message>
    <message>
        <source>Use Kelu Internal E-Mail</source>
        <translation>Utiliser le courriel interne de Kelu</translation>
    </message>
    <message>
        <source>Use Default E-mail Client (E.g. Outlook®, Outlook Express®)</source>
        <translation>Utiliser le programme de courriel (p. ex. Outlook®, Outlook Express®)</translation>
    </message>
    <message>
        <source>Use Google Mail (tm)</source>
        <translation>Utiliser Google Mail (tm)</translation>
    </message>
    <message>
        <source>Brush</source>
        <translation>Pinceau</translation>
    </message>
    <message>
        <source>Smudge</source>
        <translation>Doigt</translation>
    </message>
    <message>
        <source>Cross</source>
        <translation>Croix</translation>
    </message>
    <message>
        <source>Mask Password</source>
        <translation>Masquer le mot de passe</translation>
    </message>
    <message>
        <source>Show Reminders</source>
        <translation>Afficher les rappels</translation>
    </message>
    <message>
        <source>Resize very large images (Recommended)</source>
        <translation>Réduire les très grandes images (conseillé)</translation>
    </message>
    <message>
        <source>Use Visual Special Effects Selector</source>
        <translation>Choisir les effets par images</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Aide</translation>
    </message>
    <message>
        <source>About...</source>
        <translation>À propos...</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Réglages</translation>
    </message>
    <message>
        <source>User Name</source>
        <translation>Utilisateur</translation>
    </message>
    <message>
        <source>Password</source>
        <translation>Mot de passe</translation>
    </message>
    <message>
        <source>Pictures wider than 2048 pixels open 800 wide, portraits higher than 1536 open 600 wide. Without it pictures keep their full size.</source>
        <translation>Les images de plus de 2048 pixels de large s’ouvrent en 800 de large, les portraits de plus de 1536 de haut en 600. Sans cela, elles gardent leur taille réelle.</translation>
    </message>
    <message>
        <source>No device found</source>
        <translation>Aucun périphérique trouvé</translation>
    </message>
    <message>
        <source>Available Devices</source>
        <translation>Périphériques disponibles</translation>
    </message>
    <message>
        <source>Capture Size (Pixels)</source>
        <translation>Taille de capture (pixels)</translation>
    </message>
    <message>
        <source>This password can&apos;t be kept here: it has more than 9 characters, or characters such as ` ~ ü, and this desktop has no store of secrets for it.<byte value="xd"/>
</source>
        <translation>Ce mot de passe ne peut pas être conservé ici : il a plus de 9 caractères, ou des caractères comme ` ~ ü, et ce bureau n’a pas de coffre à secrets.<byte value="xd"/>
</translation>
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
    <message>
        <source>The printer that was chosen last is not there any more</source>
        <translation>L’imprimante choisie la dernière fois n’est plus là</translation>
    </message>
    <message>
        <source>The printer &quot;%1&quot; is not there any more</source>
        <translation>L’imprimante « %1 » n’est plus là</translation>
    </message>
    <message>
        <source>No printer is chosen</source>
        <translation>Aucune imprimante n’est choisie</translation>
    </message>
    <message>
        <source>Handing the page to &quot;%1&quot;</source>
        <translation>Remise de la page à « %1 »</translation>
    </message>
</context>
</TS>
