// Window-manager matters of top-level windows: a window with no caption at all (X11 window managers
// show nothing in its title), and secondary windows placed by the game itself.
#pragma once

class QWidget;

// Qt never lets a window's name be empty on X11 (it falls back to the application's name), so the
// name properties are emptied on the native window itself. Elsewhere an empty title already is empty.
void clearNativeCaption(QWidget *window);

// Centres a secondary window on the screen that `over` stands on. The game sets the position itself, so a
// window manager keeps it instead of placing the window where it likes.
void centreOnScreen(QWidget *window, const QWidget *over);
