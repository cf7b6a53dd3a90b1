// The help document's picture, drawn from its text source, the button faces and the library window's own
// add button, so that it always shows the buttons as the game shows them.
#pragma once

#include <QImage>

// Draws the help picture over a whole image on a white ground: a logo strip of stripHeight pixels at the
// top, then one free line of that height for the closing line printed onto it, then the help text.
// Returns the text's pixel size: the largest up to 12 with which every line fits the width.
int drawHelpPicture(QImage &img, int stripHeight);
