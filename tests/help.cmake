# Help and views: the tile position hint, the full image and help views, the minimised window.
varno_test(tst_help SOURCES ui/tst_help.cpp LIBS varno_ui varno_picturegen)
