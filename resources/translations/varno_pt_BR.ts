<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="pt_BR">
<context>
    <name>CommandLine</name>
    <message>
        <source>Show this help and end.</source>
        <translation>Mostra esta ajuda e sai.</translation>
    </message>
    <message>
        <source>Show the name and version and end.</source>
        <translation>Mostra o nome e a versão e sai.</translation>
    </message>
    <message>
        <source>Varno, a picture tile puzzle: scramble a picture into tiles and put it together again.</source>
        <translation>Varno, um quebra-cabeça de imagens: embaralhe uma imagem dividida em peças e monte-a de novo.</translation>
    </message>
    <message>
        <source>picture</source>
        <translation>imagem</translation>
    </message>
    <message>
        <source>A JPEG, GIF or BMP picture to open.</source>
        <translation>Uma imagem JPEG, GIF ou BMP para abrir.</translation>
    </message>
    <message>
        <source>[picture]</source>
        <translation>[imagem]</translation>
    </message>
    <message>
        <source>Only one picture can be opened.</source>
        <translation>Só é possível abrir uma imagem.</translation>
    </message>
    <message>
        <source>Try &apos;%1 --help&apos; for more.</source>
        <translation>Tente “%1 --help” para saber mais.</translation>
    </message>
</context>
<context>
    <name>libfrm</name>
    <message>
        <source>&amp;Add Image</source>
        <translation>&amp;Adicionar imagem</translation>
    </message>
    <message>
        <source>Picture Library</source>
        <translation>Biblioteca de imagens</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>&amp;Cancelar</translation>
    </message>
    <message>
        <source>Open - ERROR</source>
        <translation>Abrir - ERRO</translation>
    </message>
    <message>
        <source>Delete &apos;%1&apos;</source>
        <translation>Excluir “%1”?</translation>
    </message>
    <message>
        <source>Delete Image</source>
        <translation>Excluir imagem</translation>
    </message>
</context>
<context>
    <name>picturefile</name>
    <message>
        <source>The picture file %1 cannot be found.</source>
        <translation>O arquivo de imagem %1 não foi encontrado.</translation>
    </message>
    <message>
        <source>The picture file %1 cannot be read.</source>
        <translation>Não é possível ler o arquivo de imagem %1.</translation>
    </message>
    <message>
        <source>The file %1 is not a picture that can be read.</source>
        <translation>O arquivo %1 não é uma imagem legível.</translation>
    </message>
    <message>
        <source>The picture file %1 is damaged and cannot be read.</source>
        <translation>O arquivo de imagem %1 está danificado e não pode ser lido.</translation>
    </message>
    <message>
        <source>%1 is a folder, not a picture file.</source>
        <translation>%1 é uma pasta, não um arquivo de imagem.</translation>
    </message>
    <message>
        <source>The picture file %1 is empty.</source>
        <translation>O arquivo de imagem %1 está vazio.</translation>
    </message>
    <message>
        <source>The picture %1 is too large (%2 x %3 pixels); pictures of up to 100 million pixels can be opened.</source>
        <translation>A imagem %1 é grande demais (%2 x %3 pixels); é possível abrir imagens de até 100 milhões de pixels.</translation>
    </message>
    <message>
        <source>The picture file %1 is incomplete and cannot be read.</source>
        <translation>O arquivo de imagem %1 está incompleto e não pode ser lido.</translation>
    </message>
    <message>
        <source>The picture file %1 is damaged or incomplete and cannot be read.</source>
        <translation>O arquivo de imagem %1 está danificado ou incompleto e não pode ser lido.</translation>
    </message>
</context>
<context>
    <name>puzzlefile</name>
    <message>
        <source>The saved puzzle is damaged: %1.</source>
        <translation>O quebra-cabeça salvo está danificado: %1.</translation>
    </message>
    <message>
        <source>place %1</source>
        <translation>a casa %1</translation>
    </message>
    <message>
        <source>tray box %1</source>
        <translation>a casa %1 da bandeja</translation>
    </message>
    <message>
        <source>%1 is empty in a slide puzzle</source>
        <translation>%1 está vazia em um quebra-cabeça deslizante</translation>
    </message>
    <message>
        <source>%1 holds a tile whose home (%2) is not on the board</source>
        <translation>%1 contém uma peça cujo lugar (%2) não está no tabuleiro</translation>
    </message>
    <message numerus="yes">
        <source>%1 holds a piece, but the board has only %n tray boxes</source>
        <translation>
            <numerusform>%1 contém uma peça, mas a bandeja só tem %n casa</numerusform>
            <numerusform>%1 contém uma peça, mas a bandeja só tem %n casas</numerusform>
        </translation>
    </message>
    <message>
        <source>the tile whose home is place %1 is held twice</source>
        <translation>a peça da casa %1 aparece duas vezes</translation>
    </message>
    <message>
        <source>the tile whose home is place %1 is missing</source>
        <translation>falta a peça da casa %1</translation>
    </message>
    <message>
        <source>the blank tile is not on place %1, where the file puts it</source>
        <translation>o espaço vazio não está na casa %1, onde o arquivo o coloca</translation>
    </message>
    <message numerus="yes">
        <source>it counts %n tiles at home where %1 are</source>
        <translation>
            <numerusform>conta %n peça no lugar certo, mas há %1</numerusform>
            <numerusform>conta %n peças no lugar certo, mas há %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>its board has %n tiles a side, not 2 to 11</source>
        <translation>
            <numerusform>seu tabuleiro tem %n peça por lado, e não de 2 a 11</numerusform>
            <numerusform>seu tabuleiro tem %n peças por lado, e não de 2 a 11</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>it counts %n places on a board of %1 x %1 tiles</source>
        <translation>
            <numerusform>conta %n casa em um tabuleiro de %1 x %1 peças</numerusform>
            <numerusform>conta %n casas em um tabuleiro de %1 x %1 peças</numerusform>
        </translation>
    </message>
    <message>
        <source>it names no picture</source>
        <translation>não indica nenhuma imagem</translation>
    </message>
    <message numerus="yes">
        <source>its picture path of %n bytes does not fit in the file</source>
        <translation>
            <numerusform>seu caminho de imagem de %n byte não cabe no arquivo</numerusform>
            <numerusform>seu caminho de imagem de %n bytes não cabe no arquivo</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>the file is %n bytes long where its contents take %1</source>
        <translation>
            <numerusform>o arquivo tem %n byte, mas seu conteúdo ocupa %1</numerusform>
            <numerusform>o arquivo tem %n bytes, mas seu conteúdo ocupa %1</numerusform>
        </translation>
    </message>
    <message>
        <source>its puzzle type is neither S nor D</source>
        <translation>seu tipo de jogo não é nem S nem D</translation>
    </message>
    <message>
        <source>its grid colour is neither white nor black</source>
        <translation>a cor da sua grade não é nem branca nem preta</translation>
    </message>
    <message>
        <source>the file ends inside its header</source>
        <translation>o arquivo termina no meio do cabeçalho</translation>
    </message>
    <message>
        <source>The saved puzzle does not fit its picture %1: the tile %2 is cut at %3, %4, and its %5 x %6 pixels reach outside the picture, which is %7 x %8 pixels on the board.</source>
        <translation>O quebra-cabeça salvo não corresponde à sua imagem %1: a peça %2 é recortada em %3, %4, e seus %5 x %6 pixels saem da imagem, que mede %7 x %8 pixels no tabuleiro.</translation>
    </message>
    <message>
        <source>on place %1</source>
        <translation>da casa %1</translation>
    </message>
    <message>
        <source>in tray box %1</source>
        <translation>da casa %1 da bandeja</translation>
    </message>
    <message>
        <source>The saved puzzle %1 cannot be opened: %2.</source>
        <translation>Não é possível abrir o quebra-cabeça salvo %1: %2.</translation>
    </message>
    <message>
        <source>The saved puzzle %1 cannot be read: %2.</source>
        <translation>Não é possível ler o quebra-cabeça salvo %1: %2.</translation>
    </message>
</context>
<context>
    <name>rzfrm</name>
    <message>
        <source>Puzzle Size</source>
        <translation>Tamanho do quebra-cabeça</translation>
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
        <translation>Abrir imagem</translation>
    </message>
    <message>
        <source>Image Library</source>
        <translation>Biblioteca de imagens</translation>
    </message>
    <message>
        <source>Open Saved Game</source>
        <translation>Carregar jogo salvo</translation>
    </message>
    <message>
        <source>Save Current Game</source>
        <translation>Salvar jogo atual</translation>
    </message>
    <message>
        <source>Change Game Type</source>
        <translation>Mudar tipo de jogo</translation>
    </message>
    <message>
        <source>Set Grid Color</source>
        <translation>Mudar cor da grade</translation>
    </message>
    <message>
        <source>Set Number of Tiles</source>
        <translation>Número de peças</translation>
    </message>
    <message>
        <source>Scramble Tyles</source>
        <translation>Embaralhar peças</translation>
    </message>
    <message>
        <source>Display Full Image</source>
        <translation>Mostrar imagem inteira</translation>
    </message>
    <message>
        <source>Find Tile Position</source>
        <translation>Encontrar o lugar de uma peça</translation>
    </message>
    <message>
        <source>View Help</source>
        <translation>Ver ajuda</translation>
    </message>
    <message>
        <source>Minimize Game</source>
        <translation>Minimizar jogo</translation>
    </message>
    <message>
        <source>Exit Game</source>
        <translation>Sair do jogo</translation>
    </message>
    <message>
        <source>Click Image Continue To Game</source>
        <translation>Clique na imagem para continuar jogando</translation>
    </message>
    <message>
        <source>Picture Tile Puzzle</source>
        <translation>Quebra-cabeça</translation>
    </message>
    <message>
        <source>Click Here To Close Help</source>
        <translation>Clique aqui para fechar a ajuda</translation>
    </message>
    <message>
        <source>The picture %1 is too narrow or too flat for a board of %2 x %2 tiles.</source>
        <translation>A imagem %1 é estreita ou baixa demais para um tabuleiro de %2 x %2 peças.</translation>
    </message>
    <message>
        <source>Open - ERROR</source>
        <translation>Abrir - ERRO</translation>
    </message>
    <message numerus="yes">
        <source>the picture&apos;s path is longer than %n bytes</source>
        <translation>
            <numerusform>o caminho da imagem tem mais de %n byte</numerusform>
            <numerusform>o caminho da imagem tem mais de %n bytes</numerusform>
        </translation>
    </message>
    <message>
        <source>Puzzle Saved</source>
        <translation>Quebra-cabeça salvo</translation>
    </message>
    <message>
        <source>Saved</source>
        <translation>Salvo</translation>
    </message>
    <message>
        <source>The puzzle cannot be saved in %1: %2.</source>
        <translation>Não é possível salvar o quebra-cabeça em %1: %2.</translation>
    </message>
    <message>
        <source>Save - ERROR</source>
        <translation>Salvar - ERRO</translation>
    </message>
    <message>
        <source>No Saved Puzzle Found</source>
        <translation>Nenhum quebra-cabeça salvo encontrado</translation>
    </message>
    <message>
        <source>Load Saved Puzzle</source>
        <translation>Carregar quebra-cabeça salvo</translation>
    </message>
    <message>
        <source>Save Current Puzzle</source>
        <translation>Salvar o quebra-cabeça atual?</translation>
    </message>
    <message>
        <source>Save on Exit</source>
        <translation>Salvar ao sair</translation>
    </message>
    <message>
        <source>Changing the Puzzle Type will Clear the Current Puzzle
Do You Wish to Change Type</source>
        <translation>Mudar o tipo de jogo descarta o quebra-cabeça atual.
Deseja mudar o tipo de jogo?</translation>
    </message>
    <message>
        <source>Change Puzzle Type</source>
        <translation>Mudar tipo de jogo</translation>
    </message>
    <message>
        <source>Graphic Files(*.jpg;*.gif;*.bmp)</source>
        <translation>Arquivos de imagem (*.jpg;*.gif;*.bmp)</translation>
    </message>
    <message>
        <source>This Picture is Already in the Library</source>
        <translation>Esta imagem já está na biblioteca</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Abrir</translation>
    </message>
    <message>
        <source>File Extension Must Be jpg, gif, or bmp</source>
        <translation>A extensão do arquivo deve ser jpg, gif ou bmp</translation>
    </message>
    <message>
        <source>Varno</source>
        <translation>Varno</translation>
    </message>
    <message>
        <source>Puzzle board</source>
        <translation>Tabuleiro</translation>
    </message>
    <message>
        <source>Piece %1 moved</source>
        <translation>Peça %1 movida</translation>
    </message>
    <message>
        <source>Solved</source>
        <translation>Resolvido</translation>
    </message>
    <message>
        <source>Piece %1 lifted</source>
        <translation>Peça %1 levantada</translation>
    </message>
    <message>
        <source>Piece %1 put back</source>
        <translation>Peça %1 devolvida ao lugar</translation>
    </message>
    <message>
        <source>Piece %1 dropped</source>
        <translation>Peça %1 solta</translation>
    </message>
    <message>
        <source>Tray box %1</source>
        <translation>Casa %1 da bandeja</translation>
    </message>
    <message>
        <source>Row %1, column %2</source>
        <translation>Linha %1, coluna %2</translation>
    </message>
    <message>
        <source>empty</source>
        <translation>vazia</translation>
    </message>
    <message>
        <source>blank</source>
        <translation>espaço vazio</translation>
    </message>
    <message>
        <source>piece %1, in place</source>
        <translation>peça %1, no lugar certo</translation>
    </message>
    <message>
        <source>piece %1</source>
        <translation>peça %1</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
</context>
</TS>
