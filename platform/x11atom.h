// X11 atoms, for the window-manager matters Qt leaves to the program (the caption, the close request).
#pragma once

#include <cstdlib>
#include <cstring>
#include <xcb/xcb.h>

// The atom of a name on the X server, or XCB_ATOM_NONE when the server gives none.
inline xcb_atom_t internAtom(xcb_connection_t *c, const char *name)
{
    xcb_intern_atom_reply_t *reply
        = xcb_intern_atom_reply(c, xcb_intern_atom(c, false, uint16_t(strlen(name)), name), nullptr);
    const xcb_atom_t a = reply ? reply->atom : xcb_atom_t(XCB_ATOM_NONE);
    free(reply);
    return a;
}
