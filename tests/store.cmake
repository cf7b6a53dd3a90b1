# The saved puzzle: the file, the save, load and exit commands, and a save and load in the real window.
varno_test(tst_store SOURCES ui/tst_store.cpp LIBS varno_ui varno_picturegen)
varno_realwindow_test(tst_realstore)
