<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr">
<context>
    <name>CommandLine</name>
    <message>
        <source>Show this help and end.</source>
        <translation>Afficher cette aide et quitter.</translation>
    </message>
    <message>
        <source>Show the name and version and end.</source>
        <translation>Afficher le nom et la version et quitter.</translation>
    </message>
    <message>
        <source>Varno, a picture tile puzzle: scramble a picture into tiles and put it together again.</source>
        <translation>Varno, un puzzle d&apos;images&#xa0;: mélangez une image découpée en pièces et reconstituez-la.</translation>
    </message>
    <message>
        <source>picture</source>
        <translation>image</translation>
    </message>
    <message>
        <source>A JPEG, GIF or BMP picture to open.</source>
        <translation>Une image JPEG, GIF ou BMP à ouvrir.</translation>
    </message>
    <message>
        <source>[picture]</source>
        <translation>[image]</translation>
    </message>
    <message>
        <source>Only one picture can be opened.</source>
        <translation>Une seule image peut être ouverte.</translation>
    </message>
    <message>
        <source>Try &apos;%1 --help&apos; for more.</source>
        <translation>Essayez «&#x202f;%1 --help&#x202f;» pour en savoir plus.</translation>
    </message>
</context>
<context>
    <name>libfrm</name>
    <message>
        <source>&amp;Add Image</source>
        <translation>A&amp;jouter une image</translation>
    </message>
    <message>
        <source>Picture Library</source>
        <translation>Bibliothèque d&apos;images</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>&amp;Annuler</translation>
    </message>
    <message>
        <source>Open - ERROR</source>
        <translation>Ouvrir - ERREUR</translation>
    </message>
    <message>
        <source>Delete &apos;%1&apos;</source>
        <translation>Supprimer «&#x202f;%1&#x202f;»&#x202f;?</translation>
    </message>
    <message>
        <source>Delete Image</source>
        <translation>Supprimer l&apos;image</translation>
    </message>
</context>
<context>
    <name>picturefile</name>
    <message>
        <source>The picture file %1 cannot be found.</source>
        <translation>Le fichier image %1 est introuvable.</translation>
    </message>
    <message>
        <source>The picture file %1 cannot be read.</source>
        <translation>Le fichier image %1 ne peut pas être lu.</translation>
    </message>
    <message>
        <source>The file %1 is not a picture that can be read.</source>
        <translation>Le fichier %1 n&apos;est pas une image lisible.</translation>
    </message>
    <message>
        <source>The picture file %1 is damaged and cannot be read.</source>
        <translation>Le fichier image %1 est endommagé et ne peut pas être lu.</translation>
    </message>
    <message>
        <source>%1 is a folder, not a picture file.</source>
        <translation>%1 est un dossier, pas un fichier image.</translation>
    </message>
    <message>
        <source>The picture file %1 is empty.</source>
        <translation>Le fichier image %1 est vide.</translation>
    </message>
    <message>
        <source>The picture %1 is too large (%2 x %3 pixels); pictures of up to 100 million pixels can be opened.</source>
        <translation>L&apos;image %1 est trop grande (%2 x %3 pixels)&#x202f;; on peut ouvrir des images d&apos;au plus 100 millions de pixels.</translation>
    </message>
    <message>
        <source>The picture file %1 is incomplete and cannot be read.</source>
        <translation>Le fichier image %1 est incomplet et ne peut pas être lu.</translation>
    </message>
    <message>
        <source>The picture file %1 is damaged or incomplete and cannot be read.</source>
        <translation>Le fichier image %1 est endommagé ou incomplet et ne peut pas être lu.</translation>
    </message>
</context>
<context>
    <name>puzzlefile</name>
    <message>
        <source>The saved puzzle is damaged: %1.</source>
        <translation>Le puzzle enregistré est endommagé&#xa0;: %1.</translation>
    </message>
    <message>
        <source>place %1</source>
        <translation>la case %1</translation>
    </message>
    <message>
        <source>tray box %1</source>
        <translation>la case %1 de la réserve</translation>
    </message>
    <message>
        <source>%1 is empty in a slide puzzle</source>
        <translation>%1 est vide dans un taquin</translation>
    </message>
    <message>
        <source>%1 holds a tile whose home (%2) is not on the board</source>
        <translation>%1 contient une pièce dont la place (%2) n&apos;est pas sur le plateau</translation>
    </message>
    <message>
        <source>the tile whose home is place %1 is held twice</source>
        <translation>la pièce qui va sur la case %1 figure deux fois</translation>
    </message>
    <message>
        <source>the tile whose home is place %1 is missing</source>
        <translation>il manque la pièce qui va sur la case %1</translation>
    </message>
    <message>
        <source>the blank tile is not on place %1, where the file puts it</source>
        <translation>la case vide n&apos;est pas la case %1 indiquée par le fichier</translation>
    </message>
    <message>
        <source>it names no picture</source>
        <translation>aucune image n&apos;est indiquée</translation>
    </message>
    <message>
        <source>its puzzle type is neither S nor D</source>
        <translation>son type de jeu n&apos;est ni S ni D</translation>
    </message>
    <message>
        <source>its grid colour is neither white nor black</source>
        <translation>la couleur de sa grille n&apos;est ni blanche ni noire</translation>
    </message>
    <message>
        <source>the file ends inside its header</source>
        <translation>le fichier se termine au milieu de son en-tête</translation>
    </message>
    <message>
        <source>The saved puzzle does not fit its picture %1: the tile %2 is cut at %3, %4, and its %5 x %6 pixels reach outside the picture, which is %7 x %8 pixels on the board.</source>
        <translation>Le puzzle enregistré ne correspond pas à son image %1&#xa0;: la pièce %2 est découpée en %3, %4, et ses %5 x %6 pixels dépassent de l&apos;image, qui fait %7 x %8 pixels sur le plateau.</translation>
    </message>
    <message>
        <source>on place %1</source>
        <translation>de la case %1</translation>
    </message>
    <message>
        <source>in tray box %1</source>
        <translation>de la case %1 de la réserve</translation>
    </message>
    <message>
        <source>The saved puzzle %1 cannot be opened: %2.</source>
        <translation>Le puzzle enregistré %1 ne peut pas être ouvert&#xa0;: %2.</translation>
    </message>
    <message>
        <source>The saved puzzle %1 cannot be read: %2.</source>
        <translation>Le puzzle enregistré %1 ne peut pas être lu&#xa0;: %2.</translation>
    </message>
    <message numerus="yes">
        <source>%1 holds a piece, but the board has only %n tray boxes</source>
        <translation>
            <numerusform>%1 contient une pièce, mais la réserve n&apos;a que %n case</numerusform>
            <numerusform>%1 contient une pièce, mais la réserve n&apos;a que %n cases</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>it counts %n tiles at home where %1 are</source>
        <translation>
            <numerusform>il compte %n pièce bien placée alors qu&apos;il y en a %1</numerusform>
            <numerusform>il compte %n pièces bien placées alors qu&apos;il y en a %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>its board has %n tiles a side, not 2 to 11</source>
        <translation>
            <numerusform>son plateau a %n pièce de côté, et non 2 à 11</numerusform>
            <numerusform>son plateau a %n pièces de côté, et non 2 à 11</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>it counts %n places on a board of %1 x %1 tiles</source>
        <translation>
            <numerusform>il compte %n case sur un plateau de %1 x %1 pièces</numerusform>
            <numerusform>il compte %n cases sur un plateau de %1 x %1 pièces</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>its picture path of %n bytes does not fit in the file</source>
        <translation>
            <numerusform>son chemin d&apos;image de %n octet ne tient pas dans le fichier</numerusform>
            <numerusform>son chemin d&apos;image de %n octets ne tient pas dans le fichier</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>the file is %n bytes long where its contents take %1</source>
        <translation>
            <numerusform>le fichier fait %n octet alors que son contenu en occupe %1</numerusform>
            <numerusform>le fichier fait %n octets alors que son contenu en occupe %1</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>rzfrm</name>
    <message>
        <source>Puzzle Size</source>
        <translation>Taille du puzzle</translation>
    </message>
    <message>
        <source>&amp;Resize</source>
        <translation>&amp;Modifier</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>&amp;Annuler</translation>
    </message>
</context>
<context>
    <name>vxmain</name>
    <message>
        <source>Open Image</source>
        <translation>Ouvrir une image</translation>
    </message>
    <message>
        <source>Image Library</source>
        <translation>Bibliothèque d&apos;images</translation>
    </message>
    <message>
        <source>Open Saved Game</source>
        <translation>Charger la partie enregistrée</translation>
    </message>
    <message>
        <source>Save Current Game</source>
        <translation>Enregistrer la partie</translation>
    </message>
    <message>
        <source>Change Game Type</source>
        <translation>Changer le type de jeu</translation>
    </message>
    <message>
        <source>Set Grid Color</source>
        <translation>Changer la couleur de la grille</translation>
    </message>
    <message>
        <source>Set Number of Tiles</source>
        <translation>Nombre de pièces</translation>
    </message>
    <message>
        <source>Scramble Tyles</source>
        <translation>Mélanger les pièces</translation>
    </message>
    <message>
        <source>Display Full Image</source>
        <translation>Afficher l&apos;image entière</translation>
    </message>
    <message>
        <source>Find Tile Position</source>
        <translation>Trouver la place d&apos;une pièce</translation>
    </message>
    <message>
        <source>View Help</source>
        <translation>Afficher l&apos;aide</translation>
    </message>
    <message>
        <source>Minimize Game</source>
        <translation>Réduire le jeu</translation>
    </message>
    <message>
        <source>Exit Game</source>
        <translation>Quitter le jeu</translation>
    </message>
    <message>
        <source>Click Image Continue To Game</source>
        <translation>Cliquez sur l&apos;image pour continuer</translation>
    </message>
    <message>
        <source>Picture Tile Puzzle</source>
        <translation>Puzzle d&apos;images</translation>
    </message>
    <message>
        <source>Click Here To Close Help</source>
        <translation>Cliquez ici pour fermer l&apos;aide</translation>
    </message>
    <message>
        <source>The picture %1 is too narrow or too flat for a board of %2 x %2 tiles.</source>
        <translation>L&apos;image %1 est trop étroite ou trop plate pour un plateau de %2 x %2 pièces.</translation>
    </message>
    <message>
        <source>Open - ERROR</source>
        <translation>Ouvrir - ERREUR</translation>
    </message>
    <message>
        <source>Puzzle Saved</source>
        <translation>Puzzle enregistré</translation>
    </message>
    <message>
        <source>Saved</source>
        <translation>Enregistré</translation>
    </message>
    <message>
        <source>The puzzle cannot be saved in %1: %2.</source>
        <translation>Le puzzle ne peut pas être enregistré dans %1&#xa0;: %2.</translation>
    </message>
    <message>
        <source>Save - ERROR</source>
        <translation>Enregistrer - ERREUR</translation>
    </message>
    <message>
        <source>No Saved Puzzle Found</source>
        <translation>Aucun puzzle enregistré</translation>
    </message>
    <message>
        <source>Load Saved Puzzle</source>
        <translation>Charger le puzzle enregistré</translation>
    </message>
    <message>
        <source>Save Current Puzzle</source>
        <translation>Enregistrer le puzzle en cours&#x202f;?</translation>
    </message>
    <message>
        <source>Save on Exit</source>
        <translation>Enregistrer en quittant</translation>
    </message>
    <message>
        <source>Changing the Puzzle Type will Clear the Current Puzzle
Do You Wish to Change Type</source>
        <translation>Changer le type de jeu efface le puzzle en cours.
Voulez-vous changer le type de jeu&#x202f;?</translation>
    </message>
    <message>
        <source>Change Puzzle Type</source>
        <translation>Changer le type de jeu</translation>
    </message>
    <message>
        <source>Graphic Files(*.jpg;*.gif;*.bmp)</source>
        <translation>Fichiers image (*.jpg;*.gif;*.bmp)</translation>
    </message>
    <message>
        <source>This Picture is Already in the Library</source>
        <translation>Cette image est déjà dans la bibliothèque</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Ouvrir</translation>
    </message>
    <message>
        <source>File Extension Must Be jpg, gif, or bmp</source>
        <translation>L&apos;extension du fichier doit être jpg, gif ou bmp</translation>
    </message>
    <message>
        <source>Varno</source>
        <translation>Varno</translation>
    </message>
    <message numerus="yes">
        <source>the picture&apos;s path is longer than %n bytes</source>
        <translation>
            <numerusform>le chemin de l&apos;image dépasse %n octet</numerusform>
            <numerusform>le chemin de l&apos;image dépasse %n octets</numerusform>
        </translation>
    </message>
    <message>
        <source>Puzzle board</source>
        <translation>Plateau du puzzle</translation>
    </message>
    <message>
        <source>Piece %1 moved</source>
        <translation>Pièce %1 déplacée</translation>
    </message>
    <message>
        <source>Solved</source>
        <translation>Résolu</translation>
    </message>
    <message>
        <source>Piece %1 lifted</source>
        <translation>Pièce %1 soulevée</translation>
    </message>
    <message>
        <source>Piece %1 put back</source>
        <translation>Pièce %1 remise à sa place d&apos;origine</translation>
    </message>
    <message>
        <source>Piece %1 dropped</source>
        <translation>Pièce %1 posée</translation>
    </message>
    <message>
        <source>Tray box %1</source>
        <translation>Case %1 de la réserve</translation>
    </message>
    <message>
        <source>Row %1, column %2</source>
        <translation>Ligne %1, colonne %2</translation>
    </message>
    <message>
        <source>empty</source>
        <translation>vide</translation>
    </message>
    <message>
        <source>blank</source>
        <translation>case vide</translation>
    </message>
    <message>
        <source>piece %1, in place</source>
        <translation>pièce %1, bien placée</translation>
    </message>
    <message>
        <source>piece %1</source>
        <translation>pièce %1</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1&#xa0;: %2</translation>
    </message>
</context>
</TS>
