# Picture loading, the frame animation and picture selection.
varno_test(tst_picture SOURCES ui/tst_picture.cpp LIBS varno_ui varno_picturegen)
varno_test(tst_pickimage SOURCES ui/tst_pickimage.cpp LIBS varno_ui varno_picturegen)
