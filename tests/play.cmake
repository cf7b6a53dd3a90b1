# Play: the scramble of the tile tables, the grid over the board, and the slide moves.
varno_test(tst_scramble SOURCES core/tst_scramble.cpp LIBS varno_core)
varno_test(tst_grid SOURCES ui/tst_grid.cpp LIBS varno_ui varno_picturegen)
varno_test(tst_slide SOURCES ui/tst_slide.cpp LIBS varno_ui varno_picturegen)
