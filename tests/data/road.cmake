# The road of data from the file to the recordset.
dorv_test(test_fold SOURCES test_fold.cpp LIBS dorv_data)
dorv_test(test_format SOURCES test_format.cpp LIBS dorv_data)
dorv_test(test_convert SOURCES test_convert.cpp LIBS dorv_data)
