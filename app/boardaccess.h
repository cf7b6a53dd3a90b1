// The board for a screen reader.
#pragma once

// Makes Qt's accessibility give the board box its table of holders; once per run.
void installBoardAccessibility();
