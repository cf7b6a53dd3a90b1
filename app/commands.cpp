// Commands whose work belongs to the saved puzzle, the library and the help views. Each applies its
// guard; the exit command ends the run.
#include "app/vxmain.h"

void vxmain::cb_lib_Click()
{
    if (!m_state.allows(Command::Library))
        return;
}

