<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>Commands</name>
    <message>
        <source>Open</source>
        <translation>Öffnen</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>E-mail</source>
        <translation>E-Mail</translation>
    </message>
    <message>
        <source>Print</source>
        <translation>Drucken</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Rückgängig</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Wiederholen</translation>
    </message>
    <message>
        <source>Capture Image (F8)</source>
        <translation>Bild aufnehmen (F8)</translation>
    </message>
    <message>
        <source>Show Original Image</source>
        <translation>Originalbild zeigen</translation>
    </message>
    <message>
        <source>Zoom In</source>
        <translation>Vergrößern</translation>
    </message>
    <message>
        <source>Zoom Out</source>
        <translation>Verkleinern</translation>
    </message>
    <message>
        <source>Reset Zoom</source>
        <translation>Ganzes Bild</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Hilfe</translation>
    </message>
    <message>
        <source>Minimize</source>
        <translation>Minimieren</translation>
    </message>
    <message>
        <source>Maximize</source>
        <translation>Maximieren</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Finish the capture first</source>
        <translation>Erst die Aufnahme beenden</translation>
    </message>
    <message>
        <source>Open a picture first</source>
        <translation>Erst ein Bild öffnen</translation>
    </message>
    <message>
        <source>This picture is saved: open it again to go on</source>
        <translation>Dieses Bild ist gespeichert: zum Weitermachen neu öffnen</translation>
    </message>
    <message>
        <source>Nothing is painted yet</source>
        <translation>Noch ist nichts gemalt</translation>
    </message>
    <message>
        <source>Choose an effect first</source>
        <translation>Erst einen Effekt wählen</translation>
    </message>
</context>
<context>
    <name>Effects</name>
    <message>
        <source>Amount</source>
        <translation>Stärke</translation>
    </message>
    <message>
        <source>Angle</source>
        <translation>Winkel</translation>
    </message>
    <message>
        <source>Antialias</source>
        <translation>Kanten glätten</translation>
    </message>
    <message>
        <source>B&amp;W Dithered</source>
        <translation>S/W gerastert</translation>
    </message>
    <message>
        <source>Background Color</source>
        <translation>Hintergrundfarbe</translation>
    </message>
    <message>
        <source>Base Level</source>
        <translation>Grundwert</translation>
    </message>
    <message>
        <source>Black &amp; White</source>
        <translation>Schwarzweiß</translation>
    </message>
    <message>
        <source>Black &amp;&amp; White</source>
        <translation>Schwarzweiß</translation>
    </message>
    <message>
        <source>Black &amp;&amp; White Dithered</source>
        <translation>Schwarzweiß gerastert</translation>
    </message>
    <message>
        <source>Black Point</source>
        <translation>Schwarzpunkt</translation>
    </message>
    <message>
        <source>Blobs</source>
        <translation>Tropfen</translation>
    </message>
    <message>
        <source>Block Height</source>
        <translation>Blockhöhe</translation>
    </message>
    <message>
        <source>Block Width</source>
        <translation>Blockbreite</translation>
    </message>
    <message>
        <source>Blue Bits</source>
        <translation>Bits für Blau</translation>
    </message>
    <message>
        <source>Blue Threshold</source>
        <translation>Schwelle für Blau</translation>
    </message>
    <message>
        <source>Blur</source>
        <translation>Weichzeichnen</translation>
    </message>
    <message>
        <source>Blur 1</source>
        <translation>Weich 1</translation>
    </message>
    <message>
        <source>Blur 2</source>
        <translation>Weich 2</translation>
    </message>
    <message>
        <source>Blur 3</source>
        <translation>Weich 3</translation>
    </message>
    <message>
        <source>Border Color</source>
        <translation>Randfarbe</translation>
    </message>
    <message>
        <source>Borders</source>
        <translation>Ränder</translation>
    </message>
    <message>
        <source>Brightness</source>
        <translation>Helligkeit</translation>
    </message>
    <message>
        <source>Brightness 1</source>
        <translation>Helligkeit 1</translation>
    </message>
    <message>
        <source>Brightness 2</source>
        <translation>Helligkeit 2</translation>
    </message>
    <message>
        <source>Circle</source>
        <translation>Kreis</translation>
    </message>
    <message>
        <source>Color</source>
        <translation>Farbe</translation>
    </message>
    <message>
        <source>Color Correction</source>
        <translation>Farbkorrektur</translation>
    </message>
    <message>
        <source>Color Emboss</source>
        <translation>Farbrelief</translation>
    </message>
    <message>
        <source>Color Gradient</source>
        <translation>Farbverlauf</translation>
    </message>
    <message>
        <source>Colorize</source>
        <translation>Einfärben</translation>
    </message>
    <message>
        <source>Colors</source>
        <translation>Farben</translation>
    </message>
    <message>
        <source>Contrast</source>
        <translation>Kontrast</translation>
    </message>
    <message>
        <source>Dark Color</source>
        <translation>Dunkle Farbe</translation>
    </message>
    <message>
        <source>Depth</source>
        <translation>Tiefe</translation>
    </message>
    <message>
        <source>Direction &amp;&amp; Intensity</source>
        <translation>Richtung &amp;&amp; Stärke</translation>
    </message>
    <message>
        <source>Displacement</source>
        <translation>Versatz</translation>
    </message>
    <message>
        <source>East</source>
        <translation>Osten</translation>
    </message>
    <message>
        <source>Edges and Relief</source>
        <translation>Kanten und Relief</translation>
    </message>
    <message>
        <source>Emboss</source>
        <translation>Relief</translation>
    </message>
    <message>
        <source>Enhance Edge</source>
        <translation>Kanten betonen</translation>
    </message>
    <message>
        <source>Enhance Edges</source>
        <translation>Kanten betonen</translation>
    </message>
    <message>
        <source>Erode Border</source>
        <translation>Rand abtragen</translation>
    </message>
    <message>
        <source>Erode Borders</source>
        <translation>Ränder abtragen</translation>
    </message>
    <message>
        <source>Eroded Borders</source>
        <translation>Abgetragene Ränder</translation>
    </message>
    <message>
        <source>Explode</source>
        <translation>Aufblähen</translation>
    </message>
    <message>
        <source>Fade Borders</source>
        <translation>Ränder ausblenden</translation>
    </message>
    <message>
        <source>Faded Borders</source>
        <translation>Ausgeblendete Ränder</translation>
    </message>
    <message>
        <source>False Color</source>
        <translation>Falschfarben</translation>
    </message>
    <message>
        <source>Fish Eye</source>
        <translation>Fischauge</translation>
    </message>
    <message>
        <source>Freeze</source>
        <translation>Einfrieren</translation>
    </message>
    <message>
        <source>Gradient East</source>
        <translation>Verlauf Ost</translation>
    </message>
    <message>
        <source>Gradient North</source>
        <translation>Verlauf Nord</translation>
    </message>
    <message>
        <source>Gradient South</source>
        <translation>Verlauf Süd</translation>
    </message>
    <message>
        <source>Gradient West</source>
        <translation>Verlauf West</translation>
    </message>
    <message>
        <source>Gray Level</source>
        <translation>Grauwert</translation>
    </message>
    <message>
        <source>Grayscale</source>
        <translation>Graustufen</translation>
    </message>
    <message>
        <source>Green - Blue</source>
        <translation>Grün – Blau</translation>
    </message>
    <message>
        <source>Green Bits</source>
        <translation>Bits für Grün</translation>
    </message>
    <message>
        <source>Green Threshold</source>
        <translation>Schwelle für Grün</translation>
    </message>
    <message>
        <source>Hardness</source>
        <translation>Härte</translation>
    </message>
    <message>
        <source>High Pass</source>
        <translation>Hochpass</translation>
    </message>
    <message>
        <source>High Pass 1</source>
        <translation>Hochpass 1</translation>
    </message>
    <message>
        <source>High Pass 2</source>
        <translation>Hochpass 2</translation>
    </message>
    <message>
        <source>High Pass 3</source>
        <translation>Hochpass 3</translation>
    </message>
    <message>
        <source>Implode</source>
        <translation>Zusammenziehen</translation>
    </message>
    <message>
        <source>Intensity</source>
        <translation>Stärke</translation>
    </message>
    <message>
        <source>Irregular Borders</source>
        <translation>Unregelmäßige Ränder</translation>
    </message>
    <message>
        <source>Laplace 1</source>
        <translation>Laplace 1</translation>
    </message>
    <message>
        <source>Laplace 2</source>
        <translation>Laplace 2</translation>
    </message>
    <message>
        <source>Laplace 3</source>
        <translation>Laplace 3</translation>
    </message>
    <message>
        <source>Laplace Diagonal</source>
        <translation>Laplace diagonal</translation>
    </message>
    <message>
        <source>Laplace Horizontal</source>
        <translation>Laplace waagerecht</translation>
    </message>
    <message>
        <source>Laplace Vertical</source>
        <translation>Laplace senkrecht</translation>
    </message>
    <message>
        <source>Length</source>
        <translation>Länge</translation>
    </message>
    <message>
        <source>Light Color</source>
        <translation>Helle Farbe</translation>
    </message>
    <message>
        <source>Light and Grain</source>
        <translation>Licht und Korn</translation>
    </message>
    <message>
        <source>Maximum</source>
        <translation>Maximum</translation>
    </message>
    <message>
        <source>Melt</source>
        <translation>Schmelzen</translation>
    </message>
    <message>
        <source>Minimum</source>
        <translation>Minimum</translation>
    </message>
    <message>
        <source>Minmum</source>
        <translation>Minimum</translation>
    </message>
    <message>
        <source>Mosaic</source>
        <translation>Mosaik</translation>
    </message>
    <message>
        <source>Negative</source>
        <translation>Negativ</translation>
    </message>
    <message>
        <source>Neon</source>
        <translation>Neon</translation>
    </message>
    <message>
        <source>No Settings. Click on &apos;Apply&apos; button.</source>
        <translation>Nichts einzustellen. Auf „Anwenden“ klicken.</translation>
    </message>
    <message>
        <source>Noise</source>
        <translation>Rauschen</translation>
    </message>
    <message>
        <source>North</source>
        <translation>Norden</translation>
    </message>
    <message>
        <source>North Est</source>
        <translation>Nordosten</translation>
    </message>
    <message>
        <source>North West</source>
        <translation>Nordwesten</translation>
    </message>
    <message>
        <source>Oil Painting</source>
        <translation>Ölgemälde</translation>
    </message>
    <message>
        <source>Painting</source>
        <translation>Malen</translation>
    </message>
    <message>
        <source>Posterize</source>
        <translation>Tontrennung</translation>
    </message>
    <message>
        <source>Prewitt Horizontal</source>
        <translation>Prewitt waagerecht</translation>
    </message>
    <message>
        <source>Prewitt Vertical</source>
        <translation>Prewitt senkrecht</translation>
    </message>
    <message>
        <source>Proportional</source>
        <translation>Gleichmäßig</translation>
    </message>
    <message>
        <source>Radius</source>
        <translation>Radius</translation>
    </message>
    <message>
        <source>Red - Blue</source>
        <translation>Rot – Blau</translation>
    </message>
    <message>
        <source>Red - Green</source>
        <translation>Rot – Grün</translation>
    </message>
    <message>
        <source>Red Bits</source>
        <translation>Bits für Rot</translation>
    </message>
    <message>
        <source>Red Threshold</source>
        <translation>Schwelle für Rot</translation>
    </message>
    <message>
        <source>Reverse</source>
        <translation>Umkehren</translation>
    </message>
    <message>
        <source>Saturation</source>
        <translation>Sättigung</translation>
    </message>
    <message>
        <source>Saturation 1</source>
        <translation>Sättigung 1</translation>
    </message>
    <message>
        <source>Saturation 2</source>
        <translation>Sättigung 2</translation>
    </message>
    <message>
        <source>Scramble</source>
        <translation>Durcheinander</translation>
    </message>
    <message>
        <source>Select Colors</source>
        <translation>Farben wählen</translation>
    </message>
    <message>
        <source>Select a Color</source>
        <translation>Eine Farbe wählen</translation>
    </message>
    <message>
        <source>Sepia</source>
        <translation>Sepia</translation>
    </message>
    <message>
        <source>Shapes</source>
        <translation>Formen</translation>
    </message>
    <message>
        <source>Share Moved</source>
        <translation>Anteil</translation>
    </message>
    <message>
        <source>Shift &amp; Difference Diagonal</source>
        <translation>Differenz diagonal</translation>
    </message>
    <message>
        <source>Shift &amp; Difference Horizontal</source>
        <translation>Differenz waagerecht</translation>
    </message>
    <message>
        <source>Shift &amp; Difference Vertical</source>
        <translation>Differenz senkrecht</translation>
    </message>
    <message>
        <source>Sketch</source>
        <translation>Skizze</translation>
    </message>
    <message>
        <source>Sobel Horizontal</source>
        <translation>Sobel waagerecht</translation>
    </message>
    <message>
        <source>Sobel Vertical</source>
        <translation>Sobel senkrecht</translation>
    </message>
    <message>
        <source>Solarize</source>
        <translation>Solarisieren</translation>
    </message>
    <message>
        <source>South</source>
        <translation>Süden</translation>
    </message>
    <message>
        <source>South East</source>
        <translation>Südosten</translation>
    </message>
    <message>
        <source>South West</source>
        <translation>Südwesten</translation>
    </message>
    <message>
        <source>Spacing</source>
        <translation>Abstand</translation>
    </message>
    <message>
        <source>Special Filter</source>
        <translation>Spezialfilter</translation>
    </message>
    <message>
        <source>Spray</source>
        <translation>Sprühen</translation>
    </message>
    <message>
        <source>Square</source>
        <translation>Quadrat</translation>
    </message>
    <message>
        <source>Square Size</source>
        <translation>Größe der Quadrate</translation>
    </message>
    <message>
        <source>Strength</source>
        <translation>Stärke</translation>
    </message>
    <message>
        <source>Swap Colors</source>
        <translation>Farben tauschen</translation>
    </message>
    <message>
        <source>Threshold</source>
        <translation>Schwelle</translation>
    </message>
    <message>
        <source>Tile</source>
        <translation>Kacheln</translation>
    </message>
    <message>
        <source>Tile Size</source>
        <translation>Kachelgröße</translation>
    </message>
    <message>
        <source>Tint</source>
        <translation>Tönen</translation>
    </message>
    <message>
        <source>Tint Color</source>
        <translation>Tonfarbe</translation>
    </message>
    <message>
        <source>Weighted</source>
        <translation>Gewichtet</translation>
    </message>
    <message>
        <source>West</source>
        <translation>Westen</translation>
    </message>
    <message>
        <source>White Point</source>
        <translation>Weißpunkt</translation>
    </message>
    <message>
        <source>Width</source>
        <translation>Breite</translation>
    </message>
    <message>
        <source>Wind</source>
        <translation>Wind</translation>
    </message>
    <message>
        <source>Wind Downward</source>
        <translation>Wind nach unten</translation>
    </message>
    <message>
        <source>Wind to the Right</source>
        <translation>Wind nach rechts</translation>
    </message>
</context>
<context>
    <name>OpenSave</name>
    <message>
        <source>Confirm</source>
        <translation>Bestätigen</translation>
    </message>
    <message>
        <source>Save changes to &apos;%1&apos;?<byte value="xd"/>
</source>
        <translation>Änderungen an „%1“ speichern?<byte value="xd"/>
</translation>
    </message>
    <message>
        <source>Made smaller, %1 to %2</source>
        <translation>Verkleinert von %1 auf %2</translation>
    </message>
    <message>
        <source>Open in full size</source>
        <translation>In voller Größe öffnen</translation>
    </message>
    <message>
        <source>&apos;%1&apos; was made smaller when it was opened, from %2 to %3 pixels. Saved over it, its full size is lost.<byte value="xd"/>
<byte value="xd"/>
Save over it all the same?<byte value="xd"/>
</source>
        <translation>„%1“ wurde beim Öffnen von %2 auf %3 Pixel verkleinert. Wird es überschrieben, ist die volle Größe verloren.<byte value="xd"/>
<byte value="xd"/>
Trotzdem überschreiben?<byte value="xd"/>
</translation>
    </message>
    <message>
        <source>Go on with it</source>
        <translation>Damit weitermachen</translation>
    </message>
    <message>
        <source>Show in folder</source>
        <translation>Im Ordner zeigen</translation>
    </message>
    <message>
        <source>Saved as %1</source>
        <translation>Gespeichert als %1</translation>
    </message>
</context>
<context>
    <name>PaintReminder</name>
    <message>
        <source>Hold Ctrl while you paint to bring the original back</source>
        <translation>Strg beim Malen halten bringt das Original zurück</translation>
    </message>
    <message>
        <source>The effect is ready to be painted</source>
        <translation>Der Effekt kann jetzt aufgemalt werden</translation>
    </message>
</context>
<context>
    <name>Painter</name>
    <message>
        <source>Nothing painted yet: choose an effect, Apply, then brush</source>
        <translation>Noch nichts gemalt: Effekt wählen, Anwenden, dann malen</translation>
    </message>
</context>
<context>
    <name>SliderMenu</name>
    <message>
        <source>Last used: %1</source>
        <translation>Zuletzt: %1</translation>
    </message>
    <message>
        <source>Default: %1</source>
        <translation>Anfang: %1</translation>
    </message>
</context>
<context>
    <name>kelu::AboutMessage</name>
    <message>
        <source>Copyright © 2026 Tarvane Design. Free under the MIT licence.</source>
        <translation>Copyright © 2026 Tarvane Design. Frei unter der MIT-Lizenz.</translation>
    </message>
    <message>
        <source>Written by the people of Tarvane Design</source>
        <translation>Geschrieben von den Leuten bei Tarvane Design</translation>
    </message>
    <message>
        <source>I would like to thank all the people who supported me during the development of Kelu. Those endless nights and the bottomless cups of coffee and music that got me going while I faced certain &apos;challanges&apos;.</source>
        <translation>Ich danke allen, die mich bei der Entwicklung von Kelu unterstützt haben: in den endlosen Nächten, mit bodenlosen Tassen Kaffee und der Musik, die mich in Gang hielt, als ich vor gewissen „Herausforderungen“ stand.</translation>
    </message>
    <message>
        <source>I would like to thank Fathsoft for their invaluable help and also providing the excellant ImageX imaging component which Kelu is based on.</source>
        <translation>Ich danke Fathsoft für die unschätzbare Hilfe und für die ausgezeichnete Bildkomponente ImageX, auf der Kelu beruht.</translation>
    </message>
    <message>
        <source>This program is dedicated to my little daughter.</source>
        <translation>Dieses Programm ist meiner kleinen Tochter gewidmet.</translation>
    </message>
    <message>
        <source>I hope you enjoy this program and find it fun and useful.</source>
        <translation>Ich hoffe, dieses Programm macht Ihnen Freude und ist Ihnen nützlich.</translation>
    </message>
    <message>
        <source>About Kelu...</source>
        <translation>Über Kelu …</translation>
    </message>
</context>
<context>
    <name>kelu::AtomicFile</name>
    <message>
        <source>the link leads nowhere</source>
        <translation>der Verweis führt nirgendwohin</translation>
    </message>
    <message>
        <source>this is a folder</source>
        <translation>das ist ein Ordner</translation>
    </message>
    <message>
        <source>this is not a file</source>
        <translation>das ist keine Datei</translation>
    </message>
    <message>
        <source>the file is read-only</source>
        <translation>die Datei ist schreibgeschützt</translation>
    </message>
    <message>
        <source>the folder does not exist</source>
        <translation>den Ordner gibt es nicht</translation>
    </message>
    <message>
        <source>the folder cannot be written to</source>
        <translation>in den Ordner kann nicht geschrieben werden</translation>
    </message>
    <message>
        <source>already written</source>
        <translation>schon geschrieben</translation>
    </message>
    <message>
        <source>the folder cannot be written to, and there is no room for a copy</source>
        <translation>in den Ordner kann nicht geschrieben werden, und für eine Kopie ist kein Platz</translation>
    </message>
    <message>
        <source>%1; the old file is kept as %2</source>
        <translation>%1; die alte Datei bleibt als %2 erhalten</translation>
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
        <translation>%1, weich %2 %</translation>
    </message>
</context>
<context>
    <name>kelu::CWinInetConnection</name>
    <message>
        <source>The operation timed out</source>
        <translation>Die Zeit ist abgelaufen</translation>
    </message>
    <message>
        <source>The server name or address could not be resolved</source>
        <translation>Name oder Adresse des Servers ließ sich nicht auflösen</translation>
    </message>
    <message>
        <source>A connection with the server could not be established</source>
        <translation>Zum Server kam keine Verbindung zustande</translation>
    </message>
    <message>
        <source>The connection with the Internet has been lost</source>
        <translation>Die Verbindung zum Internet ist abgebrochen</translation>
    </message>
</context>
<context>
    <name>kelu::CameraCapture</name>
    <message>
        <source>Unable to find a capture device!<byte value="xd"/>
This feature will be disabled.</source>
        <translation>Es wurde kein Aufnahmegerät gefunden!<byte value="xd"/>
Die Aufnahme ist nicht möglich.</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>Invalid property value</source>
        <translation>Ungültiger Wert einer Eigenschaft</translation>
    </message>
    <message>
        <source>The camera gives no picture.<byte value="xd"/>
%1.</source>
        <translation>Die Kamera liefert kein Bild.<byte value="xd"/>
%1.</translation>
    </message>
    <message>
        <source>Don&apos;t Show This Again</source>
        <translation>Nicht mehr zeigen</translation>
    </message>
</context>
<context>
    <name>kelu::CanvasHand</name>
    <message>
        <source>Hold Ctrl and turn the wheel to zoom</source>
        <translation>Strg halten und das Rad drehen, um zu zoomen</translation>
    </message>
</context>
<context>
    <name>kelu::CapturePanel</name>
    <message>
        <source>Capture Image (F8)</source>
        <translation>Bild aufnehmen (F8)</translation>
    </message>
    <message>
        <source>Use Captured Image</source>
        <translation>Aufnahme verwenden</translation>
    </message>
    <message>
        <source>Exit Capture Mode</source>
        <translation>Aufnahme beenden</translation>
    </message>
</context>
<context>
    <name>kelu::ColorPicker</name>
    <message>
        <source>Color</source>
        <translation>Farbe</translation>
    </message>
</context>
<context>
    <name>kelu::ColorPopup</name>
    <message>
        <source>Colors</source>
        <translation>Farben</translation>
    </message>
    <message>
        <source>Hexadecimal color</source>
        <translation>Hexadezimale Farbe</translation>
    </message>
    <message>
        <source>Red</source>
        <translation>Rot</translation>
    </message>
    <message>
        <source>Green</source>
        <translation>Grün</translation>
    </message>
    <message>
        <source>Blue</source>
        <translation>Blau</translation>
    </message>
</context>
<context>
    <name>kelu::CommandLook</name>
    <message>
        <source>Nothing to undo</source>
        <translation>Nichts rückgängig zu machen</translation>
    </message>
    <message>
        <source>Nothing to redo</source>
        <translation>Nichts zu wiederholen</translation>
    </message>
    <message>
        <source>not applied yet</source>
        <translation>noch nicht angewandt</translation>
    </message>
</context>
<context>
    <name>kelu::EffectOverview</name>
    <message>
        <source>All effects</source>
        <translation>Alle Effekte</translation>
    </message>
    <message>
        <source>Effects</source>
        <translation>Effekte</translation>
    </message>
</context>
<context>
    <name>kelu::EffectPanel</name>
    <message>
        <source>Brush Size</source>
        <translation>Pinselgröße</translation>
    </message>
    <message>
        <source>X,Y Coordinates</source>
        <translation>X,Y-Koordinaten</translation>
    </message>
    <message>
        <source>  Apply</source>
        <translation>Anwenden</translation>
    </message>
    <message>
        <source>X coordinate</source>
        <translation>X-Koordinate</translation>
    </message>
    <message>
        <source>Y coordinate</source>
        <translation>Y-Koordinate</translation>
    </message>
    <message>
        <source>Pick the point on the picture</source>
        <translation>Den Punkt auf dem Bild wählen</translation>
    </message>
</context>
<context>
    <name>kelu::EffectSelectors</name>
    <message>
        <source>Effects</source>
        <translation>Effekte</translation>
    </message>
    <message>
        <source>All effects</source>
        <translation>Alle Effekte</translation>
    </message>
</context>
<context>
    <name>kelu::FileViewer</name>
    <message>
        <source>Files</source>
        <translation>Dateien</translation>
    </message>
    <message>
        <source>Reading the folder...</source>
        <translation>Der Ordner wird gelesen …</translation>
    </message>
    <message>
        <source>No pictures in this folder</source>
        <translation>Keine Bilder in diesem Ordner</translation>
    </message>
    <message>
        <source>You have no right to look into this folder</source>
        <translation>Sie dürfen nicht in diesen Ordner sehen</translation>
    </message>
    <message>
        <source>This folder can&apos;t be read</source>
        <translation>Dieser Ordner kann nicht gelesen werden</translation>
    </message>
</context>
<context>
    <name>kelu::FilmDialog</name>
    <message>
        <source>Save...</source>
        <translation>Speichern …</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>As It Grew</source>
        <translation>Wie es wuchs</translation>
    </message>
    <message>
        <source>The film</source>
        <translation>Der Film</translation>
    </message>
    <message>
        <source>%1 × %2 pixels, %3</source>
        <translation>%1 × %2 Pixel, %3</translation>
    </message>
</context>
<context>
    <name>kelu::FolderCombo</name>
    <message>
        <source>Path</source>
        <translation>Pfad</translation>
    </message>
</context>
<context>
    <name>kelu::FolderModel</name>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Größe</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>Typ</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>Datum</translation>
    </message>
</context>
<context>
    <name>kelu::GstStream</name>
    <message>
        <source>The camera is in use by another program</source>
        <translation>Ein anderes Programm benutzt die Kamera</translation>
    </message>
    <message>
        <source>This user may not use the camera</source>
        <translation>Dieser Benutzer darf die Kamera nicht benutzen</translation>
    </message>
    <message>
        <source>The camera was disconnected</source>
        <translation>Die Kamera wurde getrennt</translation>
    </message>
    <message>
        <source>The camera can&apos;t be opened</source>
        <translation>Die Kamera kann nicht geöffnet werden</translation>
    </message>
    <message>
        <source>GStreamer lacks its part &quot;%1&quot;</source>
        <translation>GStreamer fehlt der Teil „%1“</translation>
    </message>
    <message>
        <source>The camera sends a picture format that is not known here</source>
        <translation>Die Kamera sendet ein Bildformat, das hier nicht bekannt ist</translation>
    </message>
    <message>
        <source>The camera sends pictures that can&apos;t be read</source>
        <translation>Die Kamera sendet Bilder, die nicht gelesen werden können</translation>
    </message>
</context>
<context>
    <name>kelu::GstVideoCapX</name>
    <message>
        <source>Invalid property value</source>
        <translation>Ungültiger Wert einer Eigenschaft</translation>
    </message>
    <message>
        <source>There is no capture device</source>
        <translation>Es gibt kein Aufnahmegerät</translation>
    </message>
    <message>
        <source>The camera was disconnected</source>
        <translation>Die Kamera wurde getrennt</translation>
    </message>
    <message>
        <source>The camera does not send any picture</source>
        <translation>Die Kamera sendet kein Bild</translation>
    </message>
</context>
<context>
    <name>kelu::Help</name>
    <message>
        <source>&lt;b&gt;Open&lt;/b&gt; a picture with Ctrl+O, or drop one onto the window.</source>
        <translation>Mit Strg+O ein Bild &lt;b&gt;öffnen&lt;/b&gt; oder eines auf das Fenster ziehen.</translation>
    </message>
    <message>
        <source>Choose an effect at the right and set its inputs. &lt;b&gt;Apply&lt;/b&gt; renders it over a hidden copy of your picture.</source>
        <translation>Rechts einen Effekt wählen und einstellen. &lt;b&gt;Anwenden&lt;/b&gt; rechnet ihn über eine verborgene Kopie des Bildes.</translation>
    </message>
    <message>
        <source>&lt;b&gt;Paint&lt;/b&gt; with the left mouse button. The first slider sets the size of the brush.</source>
        <translation>Mit der linken Maustaste &lt;b&gt;malen&lt;/b&gt;. Der erste Regler stellt die Größe des Pinsels ein.</translation>
    </message>
    <message>
        <source>Not good? Ctrl+Z takes a stroke back, Ctrl+Y brings it again. Ctrl+S &lt;b&gt;saves&lt;/b&gt; the picture.</source>
        <translation>Nicht gut? Strg+Z nimmt einen Strich zurück, Strg+Y holt ihn wieder. Strg+S &lt;b&gt;speichert&lt;/b&gt; das Bild.</translation>
    </message>
    <message>
        <source>Have fun with effects</source>
        <translation>Spaß mit Effekten</translation>
    </message>
    <message>
        <source>Open a photo, choose an effect, press &lt;b&gt;Apply&lt;/b&gt; - and brush it on where you like it.</source>
        <translation>Ein Foto öffnen, einen Effekt wählen, &lt;b&gt;Anwenden&lt;/b&gt; – und auftragen, wo er gefällt.</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>All effects</source>
        <translation>Alle Effekte</translation>
    </message>
    <message>
        <source>All effects stand below. What hands can do is told under %1, how to set up the program under %2.</source>
        <translation>Alle Effekte stehen unten. Was Hände tun können, steht unter %1, wie das Programm eingestellt wird, unter %2.</translation>
    </message>
    <message>
        <source>Mouse and keys</source>
        <translation>Maus und Tasten</translation>
    </message>
</context>
<context>
    <name>kelu::HelpBrowser</name>
    <message>
        <source>Help page</source>
        <translation>Hilfeseite</translation>
    </message>
    <message>
        <source>This page is missing</source>
        <translation>Diese Seite fehlt</translation>
    </message>
    <message>
        <source>&lt;p&gt;The help has no page called &lt;b&gt;%1&lt;/b&gt;. It should lie here:&lt;/p&gt;&lt;p class=&quot;note&quot;&gt;%2&lt;/p&gt;&lt;p&gt;Perhaps the program was moved without its &lt;b&gt;help&lt;/b&gt; folder. Putting the folder back beside the program, or installing Kelu again, brings the page back.&lt;/p&gt;</source>
        <translation>&lt;p&gt;Die Hilfe hat keine Seite namens &lt;b&gt;%1&lt;/b&gt;. Sie müsste hier liegen:&lt;/p&gt;&lt;p class=&quot;note&quot;&gt;%2&lt;/p&gt;&lt;p&gt;Vielleicht wurde das Programm ohne seinen Ordner &lt;b&gt;help&lt;/b&gt; verschoben. Liegt der Ordner wieder neben dem Programm oder wird Kelu neu installiert, ist die Seite wieder da.&lt;/p&gt;</translation>
    </message>
    <message>
        <source>Nothing found</source>
        <translation>Nichts gefunden</translation>
    </message>
    <message>
        <source>&lt;p&gt;No page holds &lt;b&gt;%1&lt;/b&gt;. Fewer words or the beginning of a word find more; or have a look at &lt;a href=&quot;%2&quot;&gt;all effects&lt;/a&gt;.&lt;/p&gt;</source>
        <translation>&lt;p&gt;Keine Seite enthält &lt;b&gt;%1&lt;/b&gt;. Weniger Wörter oder der Anfang eines Wortes finden mehr; oder sehen Sie sich &lt;a href=&quot;%2&quot;&gt;alle Effekte&lt;/a&gt; an.&lt;/p&gt;</translation>
    </message>
    <message>
        <source>One page for &lt;b&gt;%1&lt;/b&gt;</source>
        <translation>Eine Seite zu &lt;b&gt;%1&lt;/b&gt;</translation>
    </message>
    <message>
        <source>%2 pages for &lt;b&gt;%1&lt;/b&gt;</source>
        <translation>%2 Seiten zu &lt;b&gt;%1&lt;/b&gt;</translation>
    </message>
    <message>
        <source>Found</source>
        <translation>Gefunden</translation>
    </message>
</context>
<context>
    <name>kelu::HelpWindow</name>
    <message>
        <source>Back (Alt+Left)</source>
        <translation>Zurück (Alt+Links)</translation>
    </message>
    <message>
        <source>Forward (Alt+Right)</source>
        <translation>Vor (Alt+Rechts)</translation>
    </message>
    <message>
        <source>All effects (Alt+Home)</source>
        <translation>Alle Effekte (Alt+Pos1)</translation>
    </message>
    <message>
        <source>Kelu Help</source>
        <translation>Kelu-Hilfe</translation>
    </message>
    <message>
        <source>Drag to change the size</source>
        <translation>Ziehen, um die Größe zu ändern</translation>
    </message>
    <message>
        <source>Kelu Help - </source>
        <translation>Kelu-Hilfe – </translation>
    </message>
    <message>
        <source>Search all pages</source>
        <translation>Alle Seiten durchsuchen</translation>
    </message>
</context>
<context>
    <name>kelu::History</name>
    <message>
        <source>Showing the original</source>
        <translation>Das Original ist zu sehen</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Zurück</translation>
    </message>
</context>
<context>
    <name>kelu::HueField</name>
    <message>
        <source>Hue and saturation</source>
        <translation>Farbton und Sättigung</translation>
    </message>
    <message>
        <source>Hue %1, saturation %2</source>
        <translation>Farbton %1, Sättigung %2</translation>
    </message>
</context>
<context>
    <name>kelu::ImageX</name>
    <message>
        <source>Picture</source>
        <translation>Bild</translation>
    </message>
</context>
<context>
    <name>kelu::Journal</name>
    <message>
        <source>the folder %1 can&apos;t be made</source>
        <translation>der Ordner %1 kann nicht angelegt werden</translation>
    </message>
    <message>
        <source>The brush of the picture before, which painted here, could not be kept</source>
        <translation>Der Pinsel des Bildes davor, mit dem hier gemalt wurde, konnte nicht aufbewahrt werden</translation>
    </message>
</context>
<context>
    <name>kelu::Language</name>
    <message>
        <source>ID</source>
        <comment>value of the setting</comment>
        <extracomment>The text of the setting &quot;ID&quot; that chooses this language, one that no other language has.</extracomment>
        <translation>de</translation>
    </message>
</context>
<context>
    <name>kelu::ListEx</name>
    <message>
        <source>Invalid property value</source>
        <translation>Ungültiger Wert einer Eigenschaft</translation>
    </message>
</context>
<context>
    <name>kelu::MailClient</name>
    <message>
        <source>This desktop has no way to open a mail program (xdg-email)</source>
        <translation>Dieser Desktop kann kein Mailprogramm öffnen (xdg-email)</translation>
    </message>
    <message>
        <source>Sending was cancelled</source>
        <translation>Das Senden wurde abgebrochen</translation>
    </message>
    <message>
        <source>The mail program could not be opened</source>
        <translation>Das Mailprogramm konnte nicht geöffnet werden</translation>
    </message>
    <message>
        <source>%1: the file is missing</source>
        <translation>%1: die Datei fehlt</translation>
    </message>
    <message>
        <source>No mail program is set up on this system</source>
        <translation>Auf diesem System ist kein Mailprogramm eingerichtet</translation>
    </message>
</context>
<context>
    <name>kelu::MailMessage</name>
    <message>
        <source>&quot;%1&quot; is no mail address</source>
        <translation>„%1“ ist keine Mailadresse</translation>
    </message>
</context>
<context>
    <name>kelu::MainWindow</name>
    <message>
        <source>Restore Down</source>
        <translation>Verkleinern</translation>
    </message>
    <message>
        <source>Maximize</source>
        <translation>Maximieren</translation>
    </message>
    <message>
        <source>Picture</source>
        <translation>Bild</translation>
    </message>
    <message>
        <source>Original picture</source>
        <translation>Originalbild</translation>
    </message>
    <message>
        <source>Captured picture</source>
        <translation>Aufgenommenes Bild</translation>
    </message>
    <message>
        <source>Open a picture</source>
        <translation>Bild öffnen</translation>
    </message>
    <message>
        <source>Press %1, or drop a photo here</source>
        <translation>%1 drücken oder ein Foto hierherziehen</translation>
    </message>
</context>
<context>
    <name>kelu::MessageWindow</name>
    <message>
        <source>&amp;Yes</source>
        <translation>&amp;Ja</translation>
    </message>
    <message>
        <source>&amp;No</source>
        <translation>&amp;Nein</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
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
        <translation>Der Speicher reicht nicht</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>The following error has occured:<byte value="xd"/>
%1 (%2)<byte value="xd"/>
</source>
        <translation>Es ist ein Fehler aufgetreten:<byte value="xd"/>
%1 (%2)<byte value="xd"/>
</translation>
    </message>
</context>
<context>
    <name>kelu::OfferedPicture</name>
    <message>
        <source>The other program did not give the picture that it offers</source>
        <translation>Das andere Programm hat das angebotene Bild nicht geliefert</translation>
    </message>
</context>
<context>
    <name>kelu::Pager</name>
    <message>
        <source>Scroll up</source>
        <translation>Nach oben</translation>
    </message>
    <message>
        <source>Scroll left</source>
        <translation>Nach links</translation>
    </message>
    <message>
        <source>Scroll down</source>
        <translation>Nach unten</translation>
    </message>
    <message>
        <source>Scroll right</source>
        <translation>Nach rechts</translation>
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
        <translation>Es kann losgehen! Tragen Sie den gewählten Effekt einfach auf, indem Sie über das Bild „pinseln“.<byte value="xd"/>
</translation>
    </message>
    <message>
        <source>Don&apos;t Show This Again</source>
        <translation>Nicht mehr zeigen</translation>
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
        <translation>PDF-Datei „%1“ wurde erstellt!</translation>
    </message>
    <message>
        <source>View PDF File</source>
        <translation>PDF-Datei ansehen</translation>
    </message>
</context>
<context>
    <name>kelu::Picture</name>
    <message>
        <source>Not enough memory for this effect</source>
        <translation>Für diesen Effekt reicht der Speicher nicht</translation>
    </message>
    <message>
        <source>There is no picture to save</source>
        <translation>Es gibt kein Bild zu speichern</translation>
    </message>
    <message>
        <source>Invalid picture size</source>
        <translation>Ungültige Bildgröße</translation>
    </message>
    <message>
        <source>Nothing to undo</source>
        <translation>Nichts rückgängig zu machen</translation>
    </message>
    <message>
        <source>Nothing to redo</source>
        <translation>Nichts zu wiederholen</translation>
    </message>
    <message>
        <source>The picture cannot be read: %1</source>
        <translation>Das Bild kann nicht gelesen werden: %1</translation>
    </message>
    <message>
        <source>What reads %1 files is not installed</source>
        <translation>Was %1-Dateien liest, ist nicht installiert</translation>
    </message>
    <message>
        <source>This kind of compression is not known</source>
        <translation>Diese Art der Kompression ist nicht bekannt</translation>
    </message>
    <message>
        <source>The picture is too large for a GIF file</source>
        <translation>Das Bild ist zu groß für eine GIF-Datei</translation>
    </message>
    <message>
        <source>The picture is too large for a JPEG file</source>
        <translation>Das Bild ist zu groß für eine JPEG-Datei</translation>
    </message>
    <message>
        <source>The picture is too large for a WebP file</source>
        <translation>Das Bild ist zu groß für eine WebP-Datei</translation>
    </message>
    <message>
        <source>The picture has no pixels</source>
        <translation>Das Bild hat keine Pixel</translation>
    </message>
    <message>
        <source>The picture is too large: %1 x %2 pixels</source>
        <translation>Das Bild ist zu groß: %1 x %2 Pixel</translation>
    </message>
    <message>
        <source>Not enough memory for a picture of %1 x %2 pixels</source>
        <translation>Für ein Bild von %1 x %2 Pixeln reicht der Speicher nicht</translation>
    </message>
    <message>
        <source>This is a folder</source>
        <translation>Das ist ein Ordner</translation>
    </message>
    <message>
        <source>This is not a regular file</source>
        <translation>Das ist keine gewöhnliche Datei</translation>
    </message>
    <message>
        <source>This is not a picture of a known format</source>
        <translation>Das ist kein Bild in einem bekannten Format</translation>
    </message>
    <message>
        <source>The picture file is too large</source>
        <translation>Die Bilddatei ist zu groß</translation>
    </message>
    <message>
        <source>This kind of %1 file is not known</source>
        <translation>Diese Art von %1-Datei ist nicht bekannt</translation>
    </message>
    <message>
        <source>Not enough memory for this picture</source>
        <translation>Für dieses Bild reicht der Speicher nicht</translation>
    </message>
    <message>
        <source>The extension tells no picture format that can be written</source>
        <translation>Die Endung nennt kein Bildformat, das geschrieben werden kann</translation>
    </message>
    <message>
        <source>There is no picture</source>
        <translation>Es gibt kein Bild</translation>
    </message>
    <message>
        <source>Not enough memory to write this picture</source>
        <translation>Zum Schreiben dieses Bildes reicht der Speicher nicht</translation>
    </message>
    <message>
        <source>%1 Files (*.%2)</source>
        <translation>%1-Dateien (*.%2)</translation>
    </message>
    <message>
        <source>The picture file is cut short</source>
        <translation>Die Bilddatei ist abgeschnitten</translation>
    </message>
    <message>
        <source>The picture file is damaged</source>
        <translation>Die Bilddatei ist beschädigt</translation>
    </message>
</context>
<context>
    <name>kelu::Places</name>
    <message>
        <source>Home</source>
        <translation>Persönlicher Ordner</translation>
    </message>
    <message>
        <source>Pictures</source>
        <translation>Bilder</translation>
    </message>
    <message>
        <source>Documents</source>
        <translation>Dokumente</translation>
    </message>
    <message>
        <source>Computer</source>
        <translation>Computer</translation>
    </message>
</context>
<context>
    <name>kelu::PrintService</name>
    <message>
        <source>The print server does not answer</source>
        <translation>Der Druckserver antwortet nicht</translation>
    </message>
    <message>
        <source>There is no printer &quot;%1&quot;</source>
        <translation>Es gibt keinen Drucker „%1“</translation>
    </message>
</context>
<context>
    <name>kelu::Recipe</name>
    <message>
        <source>it opens no picture</source>
        <translation>es öffnet kein Bild</translation>
    </message>
    <message>
        <source>The file is too large for a recipe</source>
        <translation>Die Datei ist zu groß für ein Rezept</translation>
    </message>
    <message>
        <source>The recipe can&apos;t be read: </source>
        <translation>Das Rezept kann nicht gelesen werden: </translation>
    </message>
</context>
<context>
    <name>kelu::RegistryFile</name>
    <message>
        <source>another program holds it</source>
        <translation>ein anderes Programm hält sie fest</translation>
    </message>
    <message>
        <source>the folder %1 can&apos;t be made</source>
        <translation>der Ordner %1 kann nicht angelegt werden</translation>
    </message>
</context>
<context>
    <name>kelu::Replay</name>
    <message>
        <source>The picture is %1 pixels large, the recipe was made for %2</source>
        <translation>Das Bild ist %1 Pixel groß, das Rezept ist für %2</translation>
    </message>
    <message>
        <source>&apos;%1&apos; is not there any more</source>
        <translation>„%1“ ist nicht mehr da</translation>
    </message>
    <message>
        <source>&apos;%1&apos; has changed since</source>
        <translation>„%1“ wurde seitdem geändert</translation>
    </message>
</context>
<context>
    <name>kelu::SaveFileDialog</name>
    <message>
        <source>Confirm</source>
        <translation>Bestätigen</translation>
    </message>
    <message>
        <source>&apos;%1&apos; is there already.<byte value="xd"/>
<byte value="xd"/>
Replace it?</source>
        <translation>„%1“ ist schon da.<byte value="xd"/>
<byte value="xd"/>
Ersetzen?</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
</context>
<context>
    <name>kelu::SaveMenu</name>
    <message>
        <source>Save the recipe...</source>
        <translation>Rezept speichern …</translation>
    </message>
    <message>
        <source>Save as it grew...</source>
        <translation>Als Film speichern …</translation>
    </message>
    <message>
        <source>Save the Recipe</source>
        <translation>Rezept speichern</translation>
    </message>
    <message>
        <source>Recipes (*.kelu)</source>
        <translation>Rezepte (*.kelu)</translation>
    </message>
    <message>
        <source>Save as It Grew</source>
        <translation>Als Film speichern</translation>
    </message>
    <message>
        <source>GIF Files (*.gif)</source>
        <translation>GIF-Dateien (*.gif)</translation>
    </message>
</context>
<context>
    <name>kelu::SessionReplay</name>
    <message>
        <source>Bring back</source>
        <translation>Zurückholen</translation>
    </message>
    <message>
        <source>Kelu ended while &apos;%1&apos; had unsaved strokes. Bring them back?</source>
        <translation>Kelu endete, während „%1“ ungespeicherte Striche hatte. Zurückholen?</translation>
    </message>
    <message>
        <source>another version of Kelu made them, with other effects</source>
        <translation>sie stammen von einer anderen Version von Kelu mit anderen Effekten</translation>
    </message>
    <message>
        <source>The record of &apos;%1&apos; was damaged at its end. What stood before that is back.</source>
        <translation>Die Aufzeichnung von „%1“ war am Ende beschädigt. Was davor stand, ist wieder da.</translation>
    </message>
    <message>
        <source>The strokes on &apos;%1&apos; can&apos;t be brought back: %2.</source>
        <translation>Die Striche auf „%1“ können nicht zurückgeholt werden: %2.</translation>
    </message>
</context>
<context>
    <name>kelu::SmtpSender</name>
    <message>
        <source>The mail domain &quot;%1&quot; does not exist</source>
        <translation>Die Maildomäne „%1“ gibt es nicht</translation>
    </message>
    <message>
        <source>The mail server of &quot;%1&quot; could not be found: %2</source>
        <translation>Der Mailserver von „%1“ wurde nicht gefunden: %2</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no mail address</source>
        <translation>„%1“ ist keine Mailadresse</translation>
    </message>
    <message>
        <source>The mail domain &quot;%1&quot; accepts no mail</source>
        <translation>Die Maildomäne „%1“ nimmt keine Mails an</translation>
    </message>
    <message>
        <source>A message is being sent already</source>
        <translation>Es wird schon eine Nachricht gesendet</translation>
    </message>
    <message>
        <source>The mail server does not answer</source>
        <translation>Der Mailserver antwortet nicht</translation>
    </message>
    <message>
        <source>The message has no recipient</source>
        <translation>Die Nachricht hat keinen Empfänger</translation>
    </message>
    <message>
        <source>No mail server is known</source>
        <translation>Es ist kein Mailserver bekannt</translation>
    </message>
    <message>
        <source>Sending was cancelled</source>
        <translation>Das Senden wurde abgebrochen</translation>
    </message>
</context>
<context>
    <name>kelu::TemporaryFolder</name>
    <message>
        <source>There is no folder for temporary files</source>
        <translation>Es gibt keinen Ordner für temporäre Dateien</translation>
    </message>
</context>
<context>
    <name>kelu::TitleRow</name>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
</context>
<context>
    <name>kelu::ValueBar</name>
    <message>
        <source>Brightness</source>
        <translation>Helligkeit</translation>
    </message>
</context>
<context>
    <name>kelu::XP_ProgressBar</name>
    <message>
        <source>Progress</source>
        <translation>Fortschritt</translation>
    </message>
</context>
<context>
    <name>kelu::frmBrowse</name>
    <message>
        <source>Open</source>
        <translation>Öffnen</translation>
    </message>
    <message>
        <source>My Pictures</source>
        <translation>Eigene Bilder</translation>
    </message>
    <message>
        <source>Gallery</source>
        <translation>Galerie</translation>
    </message>
    <message>
        <source>My Documents</source>
        <translation>Eigene Dokumente</translation>
    </message>
    <message>
        <source>My Computer</source>
        <translation>Computer</translation>
    </message>
    <message>
        <source>Large Icons</source>
        <translation>Große Symbole</translation>
    </message>
    <message>
        <source>Small Icons</source>
        <translation>Kleine Symbole</translation>
    </message>
    <message>
        <source>List</source>
        <translation>Liste</translation>
    </message>
    <message>
        <source>Details</source>
        <translation>Details</translation>
    </message>
    <message>
        <source>Thumbnails</source>
        <translation>Miniaturen</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Look in:</source>
        <translation>Suchen in:</translation>
    </message>
    <message>
        <source>Back one folder</source>
        <translation>Einen Ordner zurück</translation>
    </message>
    <message>
        <source>Move up one folder</source>
        <translation>Einen Ordner nach oben</translation>
    </message>
    <message>
        <source>Views</source>
        <translation>Ansichten</translation>
    </message>
    <message>
        <source>There is no folder and no picture &quot;%1&quot;</source>
        <translation>Es gibt keinen Ordner und kein Bild „%1“</translation>
    </message>
</context>
<context>
    <name>kelu::frmEmail</name>
    <message>
        <source>E-mail</source>
        <translation>E-Mail</translation>
    </message>
    <message>
        <source>Send</source>
        <translation>Senden</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>E-mail Image</source>
        <translation>Bild per E-Mail</translation>
    </message>
    <message>
        <source>From</source>
        <translation>Von</translation>
    </message>
    <message>
        <source>To</source>
        <translation>An</translation>
    </message>
    <message>
        <source>Subject</source>
        <translation>Betreff</translation>
    </message>
    <message>
        <source>Message</source>
        <translation>Nachricht</translation>
    </message>
    <message>
        <source>E-Mail Image via Google Mail (TM)</source>
        <translation>Bild über Google Mail (TM) senden</translation>
    </message>
    <message>
        <source>CC (Courtesy Copy)</source>
        <translation>CC (Kopie)</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>The following error(s) have occured:<byte value="xd"/>
<byte value="xd"/>
No e-mail address or an invalid e-mail address has been entered.<byte value="xd"/>
</source>
        <translation>Es sind Fehler aufgetreten:<byte value="xd"/>
<byte value="xd"/>
Es wurde keine oder eine ungültige E‑Mail-Adresse eingegeben.<byte value="xd"/>
</translation>
    </message>
    <message>
        <source>Information</source>
        <translation>Information</translation>
    </message>
    <message>
        <source>E-mail Sent!<byte value="xd"/>
</source>
        <translation>E-Mail gesendet!<byte value="xd"/>
</translation>
    </message>
    <message>
        <source>Waiting for the mail server</source>
        <translation>Warten auf den Mailserver</translation>
    </message>
    <message>
        <source>The e-mail is on its way: send it from your mail program</source>
        <translation>Die E-Mail ist unterwegs: senden Sie sie aus Ihrem Mailprogramm</translation>
    </message>
    <message>
        <source>The e-mail is on its way to %1</source>
        <translation>Die E-Mail ist unterwegs an %1</translation>
    </message>
</context>
<context>
    <name>kelu::frmMain</name>
    <message>
        <source>The inputs have changed: Apply to paint with them</source>
        <translation>Die Einstellungen sind geändert: Anwenden, um damit zu malen</translation>
    </message>
    <message>
        <source>Apply</source>
        <translation>Anwenden</translation>
    </message>
    <message>
        <source>What you paint can&apos;t be recovered after a crash: %1</source>
        <translation>Was Sie malen, lässt sich nach einem Absturz nicht zurückholen: %1</translation>
    </message>
    <message>
        <source>The strokes on &apos;%1&apos; were not saved</source>
        <translation>Die Striche auf „%1“ wurden nicht gespeichert</translation>
    </message>
    <message>
        <source>Bring back</source>
        <translation>Zurückholen</translation>
    </message>
    <message>
        <source>Not enough memory for this effect on this picture</source>
        <translation>Für diesen Effekt auf diesem Bild reicht der Speicher nicht</translation>
    </message>
    <message>
        <source>There is no picture to paste</source>
        <translation>Es gibt kein Bild zum Einfügen</translation>
    </message>
</context>
<context>
    <name>kelu::frmOptions</name>
    <message>
        <source>E-mail</source>
        <translation>E-Mail</translation>
    </message>
    <message>
        <source>E-Mail</source>
        <translation>E-Mail</translation>
    </message>
    <message>
        <source>Cursor</source>
        <translation>Zeiger</translation>
    </message>
    <message>
        <source>Warnings</source>
        <translation>Hinweise</translation>
    </message>
    <message>
        <source>Warnings &amp;&amp; Reminders</source>
        <translation>Hinweise &amp;&amp; Erinnerungen</translation>
    </message>
    <message>
        <source>Resize</source>
        <translation>Bildgröße</translation>
    </message>
    <message>
        <source>Image Resizing</source>
        <translation>Bilder verkleinern</translation>
    </message>
    <message>
        <source>Capture Devices</source>
        <translation>Kameras</translation>
    </message>
    <message>
        <source>SFX Selector</source>
        <translation>Effektwahl</translation>
    </message>
    <message>
        <source>Special Effects Selector</source>
        <translation>Auswahl der Effekte</translation>
    </message>
    <message>
        <source>Use Kelu Internal E-Mail</source>
        <translation>Kelus eigene E-Mail benutzen</translation>
    </message>
    <message>
        <source>Use Default E-mail Client (E.g. Outlook®, Outlook Express®)</source>
        <translation>Das Mailprogramm benutzen (z. B. Outlook®, Outlook Express®)</translation>
    </message>
    <message>
        <source>Use Google Mail (tm)</source>
        <translation>Google Mail (tm) benutzen</translation>
    </message>
    <message>
        <source>Brush</source>
        <translation>Pinsel</translation>
    </message>
    <message>
        <source>Smudge</source>
        <translation>Finger</translation>
    </message>
    <message>
        <source>Cross</source>
        <translation>Kreuz</translation>
    </message>
    <message>
        <source>Mask Password</source>
        <translation>Kennwort verdecken</translation>
    </message>
    <message>
        <source>Show Reminders</source>
        <translation>Erinnerungen zeigen</translation>
    </message>
    <message>
        <source>Resize very large images (Recommended)</source>
        <translation>Sehr große Bilder verkleinern (empfohlen)</translation>
    </message>
    <message>
        <source>Use Visual Special Effects Selector</source>
        <translation>Effekte nach Bildern wählen</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Hilfe</translation>
    </message>
    <message>
        <source>About...</source>
        <translation>Über …</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>User Name</source>
        <translation>Benutzername</translation>
    </message>
    <message>
        <source>Password</source>
        <translation>Kennwort</translation>
    </message>
    <message>
        <source>Pictures wider than 2048 pixels open 800 wide, portraits higher than 1536 open 600 wide. Without it pictures keep their full size.</source>
        <translation>Bilder, die breiter als 2048 Pixel sind, werden 800 breit geöffnet, Hochformate über 1536 Höhe 600 breit. Sonst behalten Bilder ihre volle Größe.</translation>
    </message>
    <message>
        <source>No device found</source>
        <translation>Kein Gerät gefunden</translation>
    </message>
    <message>
        <source>Available Devices</source>
        <translation>Geräte</translation>
    </message>
    <message>
        <source>Capture Size (Pixels)</source>
        <translation>Größe der Aufnahme (Pixel)</translation>
    </message>
    <message>
        <source>This password can&apos;t be kept here: it has more than 9 characters, or characters such as ` ~ ü, and this desktop has no store of secrets for it.<byte value="xd"/>
</source>
        <translation>Dieses Kennwort kann hier nicht aufbewahrt werden: es hat mehr als 9 Zeichen oder Zeichen wie ` ~ ü, und dieser Desktop hat keinen Schlüsselbund dafür.<byte value="xd"/>
</translation>
    </message>
</context>
<context>
    <name>kelu::frmPrint</name>
    <message>
        <source>The printer that was chosen last is not there any more</source>
        <translation>Der zuletzt gewählte Drucker ist nicht mehr da</translation>
    </message>
    <message>
        <source>The printer &quot;%1&quot; is not there any more</source>
        <translation>Der Drucker „%1“ ist nicht mehr da</translation>
    </message>
    <message>
        <source>Print</source>
        <translation>Drucken</translation>
    </message>
    <message>
        <source>Print </source>
        <translation>Drucken </translation>
    </message>
    <message>
        <source>Cancel </source>
        <translation>Abbrechen </translation>
    </message>
    <message>
        <source>Available Printers</source>
        <translation>Verfügbare Drucker</translation>
    </message>
    <message>
        <source>Orietation</source>
        <translation>Ausrichtung</translation>
    </message>
    <message>
        <source>Portrait</source>
        <translation>Hochformat</translation>
    </message>
    <message>
        <source>Landscape</source>
        <translation>Querformat</translation>
    </message>
    <message>
        <source>No printer found</source>
        <translation>Kein Drucker gefunden</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>Vorschau</translation>
    </message>
    <message>
        <source>No printer is chosen</source>
        <translation>Es ist kein Drucker gewählt</translation>
    </message>
    <message>
        <source>Handing the page to &quot;%1&quot;</source>
        <translation>Die Seite wird an „%1“ übergeben</translation>
    </message>
</context>
</TS>
