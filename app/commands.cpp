// Commands whose work belongs to the saved puzzle, the library and the help views. Each applies its
// guard; the exit command ends the run.
#include "app/vxmain.h"

void vxmain::cb_load_Click()
{
    if (!m_state.allows(Command::LoadGame))
        return;
}

void vxmain::cb_save_Click()
{
    if (!m_state.allows(Command::SaveGame))
        return;
}

void vxmain::cb_full_Click()
{
    if (!m_state.allows(Command::FullImage))
        return;
}

void vxmain::cb_helpdoc_Click()
{
}

void vxmain::cb_min_Click()
{
    if (!m_state.allows(Command::Minimise))
        return;
}

void vxmain::cb_exit_Click()
{
    m_state.HintMode = false;
    emit exitRequested();
}
