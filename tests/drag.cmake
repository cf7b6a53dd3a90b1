# Options and drag and drop: the drag of type "D" pieces, the type switch and the size dialog.
varno_test(tst_dragdrop SOURCES ui/tst_dragdrop.cpp LIBS varno_ui varno_picturegen)
varno_test(tst_options SOURCES ui/tst_options.cpp LIBS varno_ui varno_picturegen)
