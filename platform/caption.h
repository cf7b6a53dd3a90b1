// A top-level window with no caption at all: X11 window managers show nothing in its title.
#pragma once

class QWidget;

// Qt never lets a window's name be empty on X11 (it falls back to the application's name), so the
// name properties are emptied on the native window itself. Elsewhere an empty title already is empty.
void clearNativeCaption(QWidget *window);
