<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="it_IT">
<context>
    <name>CommandLine</name>
    <message>
        <source>Show this help and end.</source>
        <translation>Mostra questo aiuto ed esce.</translation>
    </message>
    <message>
        <source>Show the name and version and end.</source>
        <translation>Mostra il nome e la versione ed esce.</translation>
    </message>
    <message>
        <source>Varno, a picture tile puzzle: scramble a picture into tiles and put it together again.</source>
        <translation>Varno, un puzzle di immagini: mescola un&apos;immagine divisa in tessere e ricomponila.</translation>
    </message>
    <message>
        <source>picture</source>
        <translation>immagine</translation>
    </message>
    <message>
        <source>A JPEG, GIF or BMP picture to open.</source>
        <translation>Un&apos;immagine JPEG, GIF o BMP da aprire.</translation>
    </message>
    <message>
        <source>[picture]</source>
        <translation>[immagine]</translation>
    </message>
    <message>
        <source>Only one picture can be opened.</source>
        <translation>Si può aprire una sola immagine.</translation>
    </message>
    <message>
        <source>Try &apos;%1 --help&apos; for more.</source>
        <translation>Prova «%1 --help» per saperne di più.</translation>
    </message>
</context>
<context>
    <name>libfrm</name>
    <message>
        <source>&amp;Add Image</source>
        <translation>A&amp;ggiungi immagine</translation>
    </message>
    <message>
        <source>Picture Library</source>
        <translation>Libreria di immagini</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>&amp;Annulla</translation>
    </message>
    <message>
        <source>Open - ERROR</source>
        <translation>Apri - ERRORE</translation>
    </message>
    <message>
        <source>Delete &apos;%1&apos;</source>
        <translation>Eliminare «%1»?</translation>
    </message>
    <message>
        <source>Delete Image</source>
        <translation>Elimina immagine</translation>
    </message>
</context>
<context>
    <name>picturefile</name>
    <message>
        <source>The picture file %1 cannot be found.</source>
        <translation>Impossibile trovare il file immagine %1.</translation>
    </message>
    <message>
        <source>The picture file %1 cannot be read.</source>
        <translation>Impossibile leggere il file immagine %1.</translation>
    </message>
    <message>
        <source>The file %1 is not a picture that can be read.</source>
        <translation>Il file %1 non è un&apos;immagine leggibile.</translation>
    </message>
    <message>
        <source>The picture file %1 is damaged and cannot be read.</source>
        <translation>Il file immagine %1 è danneggiato e non può essere letto.</translation>
    </message>
    <message>
        <source>%1 is a folder, not a picture file.</source>
        <translation>%1 è una cartella, non un file immagine.</translation>
    </message>
    <message>
        <source>The picture file %1 is empty.</source>
        <translation>Il file immagine %1 è vuoto.</translation>
    </message>
    <message>
        <source>The picture %1 is too large (%2 x %3 pixels); pictures of up to 100 million pixels can be opened.</source>
        <translation>L&apos;immagine %1 è troppo grande (%2 x %3 pixel); si possono aprire immagini fino a 100 milioni di pixel.</translation>
    </message>
    <message>
        <source>The picture file %1 is incomplete and cannot be read.</source>
        <translation>Il file immagine %1 è incompleto e non può essere letto.</translation>
    </message>
    <message>
        <source>The picture file %1 is damaged or incomplete and cannot be read.</source>
        <translation>Il file immagine %1 è danneggiato o incompleto e non può essere letto.</translation>
    </message>
</context>
<context>
    <name>puzzlefile</name>
    <message>
        <source>The saved puzzle is damaged: %1.</source>
        <translation>Il puzzle salvato è danneggiato: %1.</translation>
    </message>
    <message>
        <source>place %1</source>
        <translation>la casella %1</translation>
    </message>
    <message>
        <source>tray box %1</source>
        <translation>la casella %1 del vassoio</translation>
    </message>
    <message>
        <source>%1 is empty in a slide puzzle</source>
        <translation>%1 è vuota in un puzzle scorrevole</translation>
    </message>
    <message>
        <source>%1 holds a tile whose home (%2) is not on the board</source>
        <translation>%1 contiene una tessera il cui posto (%2) non è sul piano di gioco</translation>
    </message>
    <message numerus="yes">
        <source>%1 holds a piece, but the board has only %n tray boxes</source>
        <translation>
            <numerusform>%1 contiene una tessera, ma il vassoio ha solo %n casella</numerusform>
            <numerusform>%1 contiene una tessera, ma il vassoio ha solo %n caselle</numerusform>
        </translation>
    </message>
    <message>
        <source>the tile whose home is place %1 is held twice</source>
        <translation>la tessera della casella %1 compare due volte</translation>
    </message>
    <message>
        <source>the tile whose home is place %1 is missing</source>
        <translation>manca la tessera della casella %1</translation>
    </message>
    <message>
        <source>the blank tile is not on place %1, where the file puts it</source>
        <translation>la casella vuota non è la casella %1 indicata dal file</translation>
    </message>
    <message numerus="yes">
        <source>it counts %n tiles at home where %1 are</source>
        <translation>
            <numerusform>conta %n tessera al suo posto, ma ce ne sono %1</numerusform>
            <numerusform>conta %n tessere al loro posto, ma ce ne sono %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>its board has %n tiles a side, not 2 to 11</source>
        <translation>
            <numerusform>il suo piano di gioco ha %n tessera per lato, non da 2 a 11</numerusform>
            <numerusform>il suo piano di gioco ha %n tessere per lato, non da 2 a 11</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>it counts %n places on a board of %1 x %1 tiles</source>
        <translation>
            <numerusform>conta %n casella su un piano di gioco di %1 x %1 tessere</numerusform>
            <numerusform>conta %n caselle su un piano di gioco di %1 x %1 tessere</numerusform>
        </translation>
    </message>
    <message>
        <source>it names no picture</source>
        <translation>non indica alcuna immagine</translation>
    </message>
    <message numerus="yes">
        <source>its picture path of %n bytes does not fit in the file</source>
        <translation>
            <numerusform>il percorso dell&apos;immagine, di %n byte, non sta nel file</numerusform>
            <numerusform>il percorso dell&apos;immagine, di %n byte, non sta nel file</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>the file is %n bytes long where its contents take %1</source>
        <translation>
            <numerusform>il file è lungo %n byte, ma il suo contenuto ne occupa %1</numerusform>
            <numerusform>il file è lungo %n byte, ma il suo contenuto ne occupa %1</numerusform>
        </translation>
    </message>
    <message>
        <source>its puzzle type is neither S nor D</source>
        <translation>il suo tipo di gioco non è né S né D</translation>
    </message>
    <message>
        <source>its grid colour is neither white nor black</source>
        <translation>il colore della sua griglia non è né bianco né nero</translation>
    </message>
    <message>
        <source>the file ends inside its header</source>
        <translation>il file finisce all&apos;interno della sua intestazione</translation>
    </message>
    <message>
        <source>The saved puzzle does not fit its picture %1: the tile %2 is cut at %3, %4, and its %5 x %6 pixels reach outside the picture, which is %7 x %8 pixels on the board.</source>
        <translation>Il puzzle salvato non corrisponde alla sua immagine %1: la tessera %2 è ritagliata in %3, %4 e i suoi %5 x %6 pixel escono dall&apos;immagine, che sul piano di gioco misura %7 x %8 pixel.</translation>
    </message>
    <message>
        <source>on place %1</source>
        <translation>della casella %1</translation>
    </message>
    <message>
        <source>in tray box %1</source>
        <translation>della casella %1 del vassoio</translation>
    </message>
    <message>
        <source>The saved puzzle %1 cannot be opened: %2.</source>
        <translation>Impossibile aprire il puzzle salvato %1: %2.</translation>
    </message>
    <message>
        <source>The saved puzzle %1 cannot be read: %2.</source>
        <translation>Impossibile leggere il puzzle salvato %1: %2.</translation>
    </message>
</context>
<context>
    <name>rzfrm</name>
    <message>
        <source>Puzzle Size</source>
        <translation>Dimensioni del puzzle</translation>
    </message>
    <message>
        <source>&amp;Resize</source>
        <translation>&amp;Ridimensiona</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>&amp;Annulla</translation>
    </message>
</context>
<context>
    <name>vxmain</name>
    <message>
        <source>Open Image</source>
        <translation>Apri immagine</translation>
    </message>
    <message>
        <source>Image Library</source>
        <translation>Libreria di immagini</translation>
    </message>
    <message>
        <source>Open Saved Game</source>
        <translation>Carica la partita salvata</translation>
    </message>
    <message>
        <source>Save Current Game</source>
        <translation>Salva la partita in corso</translation>
    </message>
    <message>
        <source>Change Game Type</source>
        <translation>Cambia tipo di gioco</translation>
    </message>
    <message>
        <source>Set Grid Color</source>
        <translation>Cambia colore della griglia</translation>
    </message>
    <message>
        <source>Set Number of Tiles</source>
        <translation>Numero di tessere</translation>
    </message>
    <message>
        <source>Scramble Tyles</source>
        <translation>Mescola le tessere</translation>
    </message>
    <message>
        <source>Display Full Image</source>
        <translation>Mostra l&apos;immagine intera</translation>
    </message>
    <message>
        <source>Find Tile Position</source>
        <translation>Trova il posto di una tessera</translation>
    </message>
    <message>
        <source>View Help</source>
        <translation>Mostra la guida</translation>
    </message>
    <message>
        <source>Minimize Game</source>
        <translation>Riduci a icona</translation>
    </message>
    <message>
        <source>Exit Game</source>
        <translation>Esci dal gioco</translation>
    </message>
    <message>
        <source>Click Image Continue To Game</source>
        <translation>Fai clic sull&apos;immagine per continuare</translation>
    </message>
    <message>
        <source>Picture Tile Puzzle</source>
        <translation>Puzzle di immagini</translation>
    </message>
    <message>
        <source>Click Here To Close Help</source>
        <translation>Fai clic qui per chiudere la guida</translation>
    </message>
    <message>
        <source>The picture %1 is too narrow or too flat for a board of %2 x %2 tiles.</source>
        <translation>L&apos;immagine %1 è troppo stretta o troppo bassa per un piano di gioco di %2 x %2 tessere.</translation>
    </message>
    <message>
        <source>Open - ERROR</source>
        <translation>Apri - ERRORE</translation>
    </message>
    <message numerus="yes">
        <source>the picture&apos;s path is longer than %n bytes</source>
        <translation>
            <numerusform>il percorso dell&apos;immagine supera %n byte</numerusform>
            <numerusform>il percorso dell&apos;immagine supera %n byte</numerusform>
        </translation>
    </message>
    <message>
        <source>Puzzle Saved</source>
        <translation>Puzzle salvato</translation>
    </message>
    <message>
        <source>Saved</source>
        <translation>Salvato</translation>
    </message>
    <message>
        <source>The puzzle cannot be saved in %1: %2.</source>
        <translation>Impossibile salvare il puzzle in %1: %2.</translation>
    </message>
    <message>
        <source>Save - ERROR</source>
        <translation>Salva - ERRORE</translation>
    </message>
    <message>
        <source>No Saved Puzzle Found</source>
        <translation>Nessun puzzle salvato</translation>
    </message>
    <message>
        <source>Load Saved Puzzle</source>
        <translation>Carica il puzzle salvato</translation>
    </message>
    <message>
        <source>Save Current Puzzle</source>
        <translation>Salvare il puzzle in corso?</translation>
    </message>
    <message>
        <source>Save on Exit</source>
        <translation>Salva all&apos;uscita</translation>
    </message>
    <message>
        <source>Changing the Puzzle Type will Clear the Current Puzzle
Do You Wish to Change Type</source>
        <translation>Cambiando tipo di gioco, il puzzle in corso va perso.
Vuoi cambiare tipo di gioco?</translation>
    </message>
    <message>
        <source>Change Puzzle Type</source>
        <translation>Cambia tipo di gioco</translation>
    </message>
    <message>
        <source>Graphic Files(*.jpg;*.gif;*.bmp)</source>
        <translation>File immagine (*.jpg;*.gif;*.bmp)</translation>
    </message>
    <message>
        <source>This Picture is Already in the Library</source>
        <translation>Questa immagine è già nella libreria</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Apri</translation>
    </message>
    <message>
        <source>File Extension Must Be jpg, gif, or bmp</source>
        <translation>L&apos;estensione del file deve essere jpg, gif o bmp</translation>
    </message>
    <message>
        <source>Varno</source>
        <translation>Varno</translation>
    </message>
    <message>
        <source>Puzzle board</source>
        <translation>Piano di gioco</translation>
    </message>
    <message>
        <source>Piece %1 moved</source>
        <translation>Tessera %1 spostata</translation>
    </message>
    <message>
        <source>Solved</source>
        <translation>Risolto</translation>
    </message>
    <message>
        <source>Piece %1 lifted</source>
        <translation>Tessera %1 sollevata</translation>
    </message>
    <message>
        <source>Piece %1 put back</source>
        <translation>Tessera %1 rimessa al suo posto</translation>
    </message>
    <message>
        <source>Piece %1 dropped</source>
        <translation>Tessera %1 posata</translation>
    </message>
    <message>
        <source>Tray box %1</source>
        <translation>Casella %1 del vassoio</translation>
    </message>
    <message>
        <source>Row %1, column %2</source>
        <translation>Riga %1, colonna %2</translation>
    </message>
    <message>
        <source>empty</source>
        <translation>vuota</translation>
    </message>
    <message>
        <source>blank</source>
        <translation>casella vuota</translation>
    </message>
    <message>
        <source>piece %1, in place</source>
        <translation>tessera %1, al suo posto</translation>
    </message>
    <message>
        <source>piece %1</source>
        <translation>tessera %1</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
</context>
</TS>
