<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es">
<context>
    <name>CommandLine</name>
    <message>
        <source>Show this help and end.</source>
        <translation>Mostrar esta ayuda y salir.</translation>
    </message>
    <message>
        <source>Show the name and version and end.</source>
        <translation>Mostrar el nombre y la versión y salir.</translation>
    </message>
    <message>
        <source>Varno, a picture tile puzzle: scramble a picture into tiles and put it together again.</source>
        <translation>Varno, un puzzle de imágenes: mezcla una imagen dividida en piezas y vuelve a armarla.</translation>
    </message>
    <message>
        <source>picture</source>
        <translation>imagen</translation>
    </message>
    <message>
        <source>A JPEG, GIF or BMP picture to open.</source>
        <translation>Una imagen JPEG, GIF o BMP que abrir.</translation>
    </message>
    <message>
        <source>[picture]</source>
        <translation>[imagen]</translation>
    </message>
    <message>
        <source>Only one picture can be opened.</source>
        <translation>Solo se puede abrir una imagen.</translation>
    </message>
    <message>
        <source>Try &apos;%1 --help&apos; for more.</source>
        <translation>Prueba «%1 --help» para saber más.</translation>
    </message>
</context>
<context>
    <name>libfrm</name>
    <message>
        <source>&amp;Add Image</source>
        <translation>&amp;Añadir imagen</translation>
    </message>
    <message>
        <source>Picture Library</source>
        <translation>Biblioteca de imágenes</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>&amp;Cancelar</translation>
    </message>
    <message>
        <source>Open - ERROR</source>
        <translation>Abrir - ERROR</translation>
    </message>
    <message>
        <source>Delete &apos;%1&apos;</source>
        <translation>¿Eliminar «%1»?</translation>
    </message>
    <message>
        <source>Delete Image</source>
        <translation>Eliminar imagen</translation>
    </message>
</context>
<context>
    <name>picturefile</name>
    <message>
        <source>The picture file %1 cannot be found.</source>
        <translation>No se encuentra el archivo de imagen %1.</translation>
    </message>
    <message>
        <source>The picture file %1 cannot be read.</source>
        <translation>No se puede leer el archivo de imagen %1.</translation>
    </message>
    <message>
        <source>The file %1 is not a picture that can be read.</source>
        <translation>El archivo %1 no es una imagen legible.</translation>
    </message>
    <message>
        <source>The picture file %1 is damaged and cannot be read.</source>
        <translation>El archivo de imagen %1 está dañado y no se puede leer.</translation>
    </message>
    <message>
        <source>%1 is a folder, not a picture file.</source>
        <translation>%1 es una carpeta, no un archivo de imagen.</translation>
    </message>
    <message>
        <source>The picture file %1 is empty.</source>
        <translation>El archivo de imagen %1 está vacío.</translation>
    </message>
    <message>
        <source>The picture %1 is too large (%2 x %3 pixels); pictures of up to 100 million pixels can be opened.</source>
        <translation>La imagen %1 es demasiado grande (%2 x %3 píxeles); se pueden abrir imágenes de hasta 100 millones de píxeles.</translation>
    </message>
    <message>
        <source>The picture file %1 is incomplete and cannot be read.</source>
        <translation>El archivo de imagen %1 está incompleto y no se puede leer.</translation>
    </message>
    <message>
        <source>The picture file %1 is damaged or incomplete and cannot be read.</source>
        <translation>El archivo de imagen %1 está dañado o incompleto y no se puede leer.</translation>
    </message>
</context>
<context>
    <name>puzzlefile</name>
    <message>
        <source>The saved puzzle is damaged: %1.</source>
        <translation>El puzzle guardado está dañado: %1.</translation>
    </message>
    <message>
        <source>place %1</source>
        <translation>la casilla %1</translation>
    </message>
    <message>
        <source>tray box %1</source>
        <translation>la casilla %1 de la bandeja</translation>
    </message>
    <message>
        <source>%1 is empty in a slide puzzle</source>
        <translation>%1 está vacía en un puzzle deslizante</translation>
    </message>
    <message>
        <source>%1 holds a tile whose home (%2) is not on the board</source>
        <translation>%1 contiene una pieza cuyo sitio (%2) no está en el tablero</translation>
    </message>
    <message>
        <source>the tile whose home is place %1 is held twice</source>
        <translation>la pieza de la casilla %1 aparece dos veces</translation>
    </message>
    <message>
        <source>the tile whose home is place %1 is missing</source>
        <translation>falta la pieza de la casilla %1</translation>
    </message>
    <message>
        <source>the blank tile is not on place %1, where the file puts it</source>
        <translation>el hueco no está en la casilla %1, donde lo pone el archivo</translation>
    </message>
    <message>
        <source>it names no picture</source>
        <translation>no indica ninguna imagen</translation>
    </message>
    <message>
        <source>its puzzle type is neither S nor D</source>
        <translation>su tipo de juego no es ni S ni D</translation>
    </message>
    <message>
        <source>its grid colour is neither white nor black</source>
        <translation>el color de su cuadrícula no es ni blanco ni negro</translation>
    </message>
    <message>
        <source>the file ends inside its header</source>
        <translation>el archivo termina dentro de su cabecera</translation>
    </message>
    <message>
        <source>The saved puzzle does not fit its picture %1: the tile %2 is cut at %3, %4, and its %5 x %6 pixels reach outside the picture, which is %7 x %8 pixels on the board.</source>
        <translation>El puzzle guardado no corresponde a su imagen %1: la pieza %2 se corta en %3, %4, y sus %5 x %6 píxeles salen de la imagen, que mide %7 x %8 píxeles en el tablero.</translation>
    </message>
    <message>
        <source>on place %1</source>
        <translation>de la casilla %1</translation>
    </message>
    <message>
        <source>in tray box %1</source>
        <translation>de la casilla %1 de la bandeja</translation>
    </message>
    <message>
        <source>The saved puzzle %1 cannot be opened: %2.</source>
        <translation>No se puede abrir el puzzle guardado %1: %2.</translation>
    </message>
    <message>
        <source>The saved puzzle %1 cannot be read: %2.</source>
        <translation>No se puede leer el puzzle guardado %1: %2.</translation>
    </message>
    <message numerus="yes">
        <source>%1 holds a piece, but the board has only %n tray boxes</source>
        <translation>
            <numerusform>%1 contiene una pieza, pero la bandeja solo tiene %n casilla</numerusform>
            <numerusform>%1 contiene una pieza, pero la bandeja solo tiene %n casillas</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>it counts %n tiles at home where %1 are</source>
        <translation>
            <numerusform>cuenta %n pieza en su sitio cuando hay %1</numerusform>
            <numerusform>cuenta %n piezas en su sitio cuando hay %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>its board has %n tiles a side, not 2 to 11</source>
        <translation>
            <numerusform>su tablero tiene %n pieza por lado, no de 2 a 11</numerusform>
            <numerusform>su tablero tiene %n piezas por lado, no de 2 a 11</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>it counts %n places on a board of %1 x %1 tiles</source>
        <translation>
            <numerusform>cuenta %n casilla en un tablero de %1 x %1 piezas</numerusform>
            <numerusform>cuenta %n casillas en un tablero de %1 x %1 piezas</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>its picture path of %n bytes does not fit in the file</source>
        <translation>
            <numerusform>su ruta de imagen de %n byte no cabe en el archivo</numerusform>
            <numerusform>su ruta de imagen de %n bytes no cabe en el archivo</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>the file is %n bytes long where its contents take %1</source>
        <translation>
            <numerusform>el archivo mide %n byte cuando su contenido ocupa %1</numerusform>
            <numerusform>el archivo mide %n bytes cuando su contenido ocupa %1</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>rzfrm</name>
    <message>
        <source>Puzzle Size</source>
        <translation>Tamaño del puzzle</translation>
    </message>
    <message>
        <source>&amp;Resize</source>
        <translation>&amp;Redimensionar</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>&amp;Cancelar</translation>
    </message>
</context>
<context>
    <name>vxmain</name>
    <message>
        <source>Open Image</source>
        <translation>Abrir imagen</translation>
    </message>
    <message>
        <source>Image Library</source>
        <translation>Biblioteca de imágenes</translation>
    </message>
    <message>
        <source>Open Saved Game</source>
        <translation>Cargar partida guardada</translation>
    </message>
    <message>
        <source>Save Current Game</source>
        <translation>Guardar partida actual</translation>
    </message>
    <message>
        <source>Change Game Type</source>
        <translation>Cambiar tipo de juego</translation>
    </message>
    <message>
        <source>Set Grid Color</source>
        <translation>Cambiar color de la cuadrícula</translation>
    </message>
    <message>
        <source>Set Number of Tiles</source>
        <translation>Número de piezas</translation>
    </message>
    <message>
        <source>Scramble Tyles</source>
        <translation>Mezclar piezas</translation>
    </message>
    <message>
        <source>Display Full Image</source>
        <translation>Ver imagen completa</translation>
    </message>
    <message>
        <source>Find Tile Position</source>
        <translation>Buscar sitio de una pieza</translation>
    </message>
    <message>
        <source>View Help</source>
        <translation>Ver ayuda</translation>
    </message>
    <message>
        <source>Minimize Game</source>
        <translation>Minimizar juego</translation>
    </message>
    <message>
        <source>Exit Game</source>
        <translation>Salir del juego</translation>
    </message>
    <message>
        <source>Click Image Continue To Game</source>
        <translation>Haz clic en la imagen para seguir jugando</translation>
    </message>
    <message>
        <source>Picture Tile Puzzle</source>
        <translation>Puzzle de imágenes</translation>
    </message>
    <message>
        <source>Click Here To Close Help</source>
        <translation>Haz clic aquí para cerrar la ayuda</translation>
    </message>
    <message>
        <source>The picture %1 is too narrow or too flat for a board of %2 x %2 tiles.</source>
        <translation>La imagen %1 es demasiado estrecha o baja para un tablero de %2 x %2 piezas.</translation>
    </message>
    <message>
        <source>Open - ERROR</source>
        <translation>Abrir - ERROR</translation>
    </message>
    <message>
        <source>Puzzle Saved</source>
        <translation>Puzzle guardado</translation>
    </message>
    <message>
        <source>Saved</source>
        <translation>Guardado</translation>
    </message>
    <message>
        <source>The puzzle cannot be saved in %1: %2.</source>
        <translation>No se puede guardar el puzzle en %1: %2.</translation>
    </message>
    <message>
        <source>Save - ERROR</source>
        <translation>Guardar - ERROR</translation>
    </message>
    <message>
        <source>No Saved Puzzle Found</source>
        <translation>No hay ningún puzzle guardado</translation>
    </message>
    <message>
        <source>Load Saved Puzzle</source>
        <translation>Cargar puzzle guardado</translation>
    </message>
    <message>
        <source>Save Current Puzzle</source>
        <translation>¿Guardar el puzzle actual?</translation>
    </message>
    <message>
        <source>Save on Exit</source>
        <translation>Guardar al salir</translation>
    </message>
    <message>
        <source>Changing the Puzzle Type will Clear the Current Puzzle
Do You Wish to Change Type</source>
        <translation>Cambiar el tipo de juego descarta el puzzle actual.
¿Quieres cambiar el tipo de juego?</translation>
    </message>
    <message>
        <source>Change Puzzle Type</source>
        <translation>Cambiar tipo de juego</translation>
    </message>
    <message>
        <source>Graphic Files(*.jpg;*.gif;*.bmp)</source>
        <translation>Archivos de imagen (*.jpg;*.gif;*.bmp)</translation>
    </message>
    <message>
        <source>This Picture is Already in the Library</source>
        <translation>Esta imagen ya está en la biblioteca</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Abrir</translation>
    </message>
    <message>
        <source>File Extension Must Be jpg, gif, or bmp</source>
        <translation>La extensión del archivo debe ser jpg, gif o bmp</translation>
    </message>
    <message>
        <source>Varno</source>
        <translation>Varno</translation>
    </message>
    <message numerus="yes">
        <source>the picture&apos;s path is longer than %n bytes</source>
        <translation>
            <numerusform>la ruta de la imagen tiene más de %n byte</numerusform>
            <numerusform>la ruta de la imagen tiene más de %n bytes</numerusform>
        </translation>
    </message>
    <message>
        <source>Puzzle board</source>
        <translation>Tablero del puzzle</translation>
    </message>
    <message>
        <source>Piece %1 moved</source>
        <translation>Pieza %1 movida</translation>
    </message>
    <message>
        <source>Solved</source>
        <translation>Resuelto</translation>
    </message>
    <message>
        <source>Piece %1 lifted</source>
        <translation>Pieza %1 levantada</translation>
    </message>
    <message>
        <source>Piece %1 put back</source>
        <translation>Pieza %1 devuelta a su sitio</translation>
    </message>
    <message>
        <source>Piece %1 dropped</source>
        <translation>Pieza %1 colocada</translation>
    </message>
    <message>
        <source>Tray box %1</source>
        <translation>Casilla %1 de la bandeja</translation>
    </message>
    <message>
        <source>Row %1, column %2</source>
        <translation>Fila %1, columna %2</translation>
    </message>
    <message>
        <source>empty</source>
        <translation>vacía</translation>
    </message>
    <message>
        <source>blank</source>
        <translation>hueco</translation>
    </message>
    <message>
        <source>piece %1, in place</source>
        <translation>pieza %1, en su sitio</translation>
    </message>
    <message>
        <source>piece %1</source>
        <translation>pieza %1</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
</context>
</TS>
