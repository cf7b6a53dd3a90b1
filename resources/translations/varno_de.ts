<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de">
<context>
    <name>CommandLine</name>
    <message>
        <source>Show this help and end.</source>
        <translation>Diese Hilfe zeigen und beenden.</translation>
    </message>
    <message>
        <source>Show the name and version and end.</source>
        <translation>Name und Version zeigen und beenden.</translation>
    </message>
    <message>
        <source>Varno, a picture tile puzzle: scramble a picture into tiles and put it together again.</source>
        <translation>Varno, ein Bilderpuzzle: ein Bild in Teile zerlegen, mischen und wieder zusammensetzen.</translation>
    </message>
    <message>
        <source>picture</source>
        <translation>Bild</translation>
    </message>
    <message>
        <source>A JPEG, GIF or BMP picture to open.</source>
        <translation>Ein JPEG-, GIF- oder BMP-Bild, das geöffnet wird.</translation>
    </message>
    <message>
        <source>[picture]</source>
        <translation>[Bild]</translation>
    </message>
    <message>
        <source>Only one picture can be opened.</source>
        <translation>Es kann nur ein Bild geöffnet werden.</translation>
    </message>
    <message>
        <source>Try &apos;%1 --help&apos; for more.</source>
        <translation>Mehr dazu mit „%1 --help“.</translation>
    </message>
</context>
<context>
    <name>libfrm</name>
    <message>
        <source>&amp;Add Image</source>
        <translation>Bild &amp;hinzufügen</translation>
    </message>
    <message>
        <source>Picture Library</source>
        <translation>Bildbibliothek</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>&amp;Abbrechen</translation>
    </message>
    <message>
        <source>Open - ERROR</source>
        <translation>Öffnen - FEHLER</translation>
    </message>
    <message>
        <source>Delete &apos;%1&apos;</source>
        <translation>„%1“ löschen?</translation>
    </message>
    <message>
        <source>Delete Image</source>
        <translation>Bild löschen</translation>
    </message>
</context>
<context>
    <name>picturefile</name>
    <message>
        <source>The picture file %1 cannot be found.</source>
        <translation>Die Bilddatei %1 wurde nicht gefunden.</translation>
    </message>
    <message>
        <source>The picture file %1 cannot be read.</source>
        <translation>Die Bilddatei %1 kann nicht gelesen werden.</translation>
    </message>
    <message>
        <source>The file %1 is not a picture that can be read.</source>
        <translation>Die Datei %1 ist kein lesbares Bild.</translation>
    </message>
    <message>
        <source>The picture file %1 is damaged and cannot be read.</source>
        <translation>Die Bilddatei %1 ist beschädigt und kann nicht gelesen werden.</translation>
    </message>
    <message>
        <source>%1 is a folder, not a picture file.</source>
        <translation>%1 ist ein Ordner, keine Bilddatei.</translation>
    </message>
    <message>
        <source>The picture file %1 is empty.</source>
        <translation>Die Bilddatei %1 ist leer.</translation>
    </message>
    <message>
        <source>The picture %1 is too large (%2 x %3 pixels); pictures of up to 100 million pixels can be opened.</source>
        <translation>Das Bild %1 ist zu groß (%2 x %3 Pixel); Bilder mit bis zu 100 Millionen Pixeln können geöffnet werden.</translation>
    </message>
    <message>
        <source>The picture file %1 is incomplete and cannot be read.</source>
        <translation>Die Bilddatei %1 ist unvollständig und kann nicht gelesen werden.</translation>
    </message>
    <message>
        <source>The picture file %1 is damaged or incomplete and cannot be read.</source>
        <translation>Die Bilddatei %1 ist beschädigt oder unvollständig und kann nicht gelesen werden.</translation>
    </message>
</context>
<context>
    <name>puzzlefile</name>
    <message>
        <source>The saved puzzle is damaged: %1.</source>
        <translation>Das gespeicherte Puzzle ist beschädigt: %1.</translation>
    </message>
    <message>
        <source>place %1</source>
        <translation>Platz %1</translation>
    </message>
    <message>
        <source>tray box %1</source>
        <translation>Ablagefach %1</translation>
    </message>
    <message>
        <source>%1 is empty in a slide puzzle</source>
        <translation>%1 ist in einem Schiebepuzzle leer</translation>
    </message>
    <message>
        <source>%1 holds a tile whose home (%2) is not on the board</source>
        <translation>%1 enthält ein Teil, dessen richtiger Platz (%2) nicht auf dem Spielfeld liegt</translation>
    </message>
    <message>
        <source>the tile whose home is place %1 is held twice</source>
        <translation>Das Teil für Platz %1 kommt zweimal vor</translation>
    </message>
    <message>
        <source>the tile whose home is place %1 is missing</source>
        <translation>Das Teil für Platz %1 fehlt</translation>
    </message>
    <message>
        <source>the blank tile is not on place %1, where the file puts it</source>
        <translation>Die Lücke liegt nicht auf Platz %1, den die Datei angibt</translation>
    </message>
    <message>
        <source>it names no picture</source>
        <translation>Es ist kein Bild angegeben</translation>
    </message>
    <message>
        <source>its puzzle type is neither S nor D</source>
        <translation>Seine Spielart ist weder S noch D</translation>
    </message>
    <message>
        <source>its grid colour is neither white nor black</source>
        <translation>Seine Gitterfarbe ist weder weiß noch schwarz</translation>
    </message>
    <message>
        <source>the file ends inside its header</source>
        <translation>Die Datei endet mitten im Dateikopf</translation>
    </message>
    <message>
        <source>The saved puzzle does not fit its picture %1: the tile %2 is cut at %3, %4, and its %5 x %6 pixels reach outside the picture, which is %7 x %8 pixels on the board.</source>
        <translation>Das gespeicherte Puzzle passt nicht zu seinem Bild %1: Das Teil %2 wird bei %3, %4 ausgeschnitten, und seine %5 x %6 Pixel reichen über das Bild hinaus, das auf dem Spielfeld %7 x %8 Pixel groß ist.</translation>
    </message>
    <message>
        <source>on place %1</source>
        <translation>auf Platz %1</translation>
    </message>
    <message>
        <source>in tray box %1</source>
        <translation>im Ablagefach %1</translation>
    </message>
    <message>
        <source>The saved puzzle %1 cannot be opened: %2.</source>
        <translation>Das gespeicherte Puzzle %1 kann nicht geöffnet werden: %2.</translation>
    </message>
    <message>
        <source>The saved puzzle %1 cannot be read: %2.</source>
        <translation>Das gespeicherte Puzzle %1 kann nicht gelesen werden: %2.</translation>
    </message>
    <message numerus="yes">
        <source>%1 holds a piece, but the board has only %n tray boxes</source>
        <translation>
            <numerusform>%1 enthält ein Teil, aber die Ablage hat nur %n Fach</numerusform>
            <numerusform>%1 enthält ein Teil, aber die Ablage hat nur %n Fächer</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>it counts %n tiles at home where %1 are</source>
        <translation>
            <numerusform>Es zählt %n Teil am richtigen Platz, es sind aber %1</numerusform>
            <numerusform>Es zählt %n Teile am richtigen Platz, es sind aber %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>its board has %n tiles a side, not 2 to 11</source>
        <translation>
            <numerusform>Sein Spielfeld hat %n Teil pro Seite statt 2 bis 11</numerusform>
            <numerusform>Sein Spielfeld hat %n Teile pro Seite statt 2 bis 11</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>it counts %n places on a board of %1 x %1 tiles</source>
        <translation>
            <numerusform>Es zählt %n Platz auf einem Spielfeld von %1 x %1 Teilen</numerusform>
            <numerusform>Es zählt %n Plätze auf einem Spielfeld von %1 x %1 Teilen</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>its picture path of %n bytes does not fit in the file</source>
        <translation>
            <numerusform>Sein Bildpfad von %n Byte passt nicht in die Datei</numerusform>
            <numerusform>Sein Bildpfad von %n Bytes passt nicht in die Datei</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>the file is %n bytes long where its contents take %1</source>
        <translation>
            <numerusform>Die Datei ist %n Byte lang, ihr Inhalt braucht aber %1</numerusform>
            <numerusform>Die Datei ist %n Bytes lang, ihr Inhalt braucht aber %1</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>rzfrm</name>
    <message>
        <source>Puzzle Size</source>
        <translation>Puzzlegröße</translation>
    </message>
    <message>
        <source>&amp;Resize</source>
        <translation>Größe &amp;ändern</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>&amp;Abbrechen</translation>
    </message>
</context>
<context>
    <name>vxmain</name>
    <message>
        <source>Open Image</source>
        <translation>Bild öffnen</translation>
    </message>
    <message>
        <source>Image Library</source>
        <translation>Bildbibliothek</translation>
    </message>
    <message>
        <source>Open Saved Game</source>
        <translation>Gespeichertes Spiel laden</translation>
    </message>
    <message>
        <source>Save Current Game</source>
        <translation>Aktuelles Spiel speichern</translation>
    </message>
    <message>
        <source>Change Game Type</source>
        <translation>Spielart wechseln</translation>
    </message>
    <message>
        <source>Set Grid Color</source>
        <translation>Gitterfarbe wechseln</translation>
    </message>
    <message>
        <source>Set Number of Tiles</source>
        <translation>Anzahl der Teile</translation>
    </message>
    <message>
        <source>Scramble Tyles</source>
        <translation>Teile mischen</translation>
    </message>
    <message>
        <source>Display Full Image</source>
        <translation>Ganzes Bild zeigen</translation>
    </message>
    <message>
        <source>Find Tile Position</source>
        <translation>Platz eines Teils finden</translation>
    </message>
    <message>
        <source>View Help</source>
        <translation>Hilfe anzeigen</translation>
    </message>
    <message>
        <source>Minimize Game</source>
        <translation>Spiel minimieren</translation>
    </message>
    <message>
        <source>Exit Game</source>
        <translation>Spiel beenden</translation>
    </message>
    <message>
        <source>Click Image Continue To Game</source>
        <translation>Bild anklicken, um weiterzuspielen</translation>
    </message>
    <message>
        <source>Picture Tile Puzzle</source>
        <translation>Bilderpuzzle</translation>
    </message>
    <message>
        <source>Click Here To Close Help</source>
        <translation>Hier klicken, um die Hilfe zu schließen</translation>
    </message>
    <message>
        <source>The picture %1 is too narrow or too flat for a board of %2 x %2 tiles.</source>
        <translation>Das Bild %1 ist zu schmal oder zu flach für ein Spielfeld von %2 x %2 Teilen.</translation>
    </message>
    <message>
        <source>Open - ERROR</source>
        <translation>Öffnen - FEHLER</translation>
    </message>
    <message>
        <source>Puzzle Saved</source>
        <translation>Puzzle gespeichert</translation>
    </message>
    <message>
        <source>Saved</source>
        <translation>Gespeichert</translation>
    </message>
    <message>
        <source>The puzzle cannot be saved in %1: %2.</source>
        <translation>Das Puzzle kann nicht in %1 gespeichert werden: %2.</translation>
    </message>
    <message>
        <source>Save - ERROR</source>
        <translation>Speichern - FEHLER</translation>
    </message>
    <message>
        <source>No Saved Puzzle Found</source>
        <translation>Kein gespeichertes Puzzle gefunden</translation>
    </message>
    <message>
        <source>Load Saved Puzzle</source>
        <translation>Gespeichertes Puzzle laden</translation>
    </message>
    <message>
        <source>Save Current Puzzle</source>
        <translation>Aktuelles Puzzle speichern?</translation>
    </message>
    <message>
        <source>Save on Exit</source>
        <translation>Beim Beenden speichern</translation>
    </message>
    <message>
        <source>Changing the Puzzle Type will Clear the Current Puzzle
Do You Wish to Change Type</source>
        <translation>Wenn Sie die Spielart wechseln, wird das aktuelle Puzzle verworfen.
Möchten Sie die Spielart wechseln?</translation>
    </message>
    <message>
        <source>Change Puzzle Type</source>
        <translation>Spielart wechseln</translation>
    </message>
    <message>
        <source>Graphic Files(*.jpg;*.gif;*.bmp)</source>
        <translation>Bilddateien (*.jpg;*.gif;*.bmp)</translation>
    </message>
    <message>
        <source>This Picture is Already in the Library</source>
        <translation>Dieses Bild ist schon in der Bibliothek</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Öffnen</translation>
    </message>
    <message>
        <source>File Extension Must Be jpg, gif, or bmp</source>
        <translation>Die Dateiendung muss jpg, gif oder bmp sein</translation>
    </message>
    <message>
        <source>Varno</source>
        <translation>Varno</translation>
    </message>
    <message numerus="yes">
        <source>the picture&apos;s path is longer than %n bytes</source>
        <translation>
            <numerusform>Der Pfad des Bildes ist länger als %n Byte</numerusform>
            <numerusform>Der Pfad des Bildes ist länger als %n Bytes</numerusform>
        </translation>
    </message>
    <message>
        <source>Puzzle board</source>
        <translation>Spielfeld</translation>
    </message>
    <message>
        <source>Piece %1 moved</source>
        <translation>Teil %1 verschoben</translation>
    </message>
    <message>
        <source>Solved</source>
        <translation>Gelöst</translation>
    </message>
    <message>
        <source>Piece %1 lifted</source>
        <translation>Teil %1 aufgenommen</translation>
    </message>
    <message>
        <source>Piece %1 put back</source>
        <translation>Teil %1 zurückgelegt</translation>
    </message>
    <message>
        <source>Piece %1 dropped</source>
        <translation>Teil %1 abgelegt</translation>
    </message>
    <message>
        <source>Tray box %1</source>
        <translation>Ablagefach %1</translation>
    </message>
    <message>
        <source>Row %1, column %2</source>
        <translation>Zeile %1, Spalte %2</translation>
    </message>
    <message>
        <source>empty</source>
        <translation>leer</translation>
    </message>
    <message>
        <source>blank</source>
        <translation>Lücke</translation>
    </message>
    <message>
        <source>piece %1, in place</source>
        <translation>Teil %1, am richtigen Platz</translation>
    </message>
    <message>
        <source>piece %1</source>
        <translation>Teil %1</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
</context>
</TS>
