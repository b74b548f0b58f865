# The road of data from the file to the recordset.
dorv_test(test_fold SOURCES test_fold.cpp LIBS dorv_data)
dorv_test(test_format SOURCES test_format.cpp LIBS dorv_data)
dorv_test(test_convert SOURCES test_convert.cpp LIBS dorv_data)
dorv_test(test_files SOURCES test_files.cpp LIBS dorv_data)
dorv_test(test_recordset SOURCES test_recordset.cpp LIBS dorv_data)
dorv_test(test_sql SOURCES test_sql.cpp LIBS dorv_data)
add_executable(road_writer roadwriter.cpp)
target_link_libraries(road_writer PRIVATE dorv_data)
dorv_test(test_seats SOURCES test_seats.cpp LIBS dorv_data)
target_compile_definitions(test_seats PRIVATE ROAD_WRITER="$<TARGET_FILE:road_writer>")
add_dependencies(test_seats road_writer)
dorv_engine_tests(test_recordset test_seats test_sql)

# What only a server can do to the road.
dorv_test(test_postgres SOURCES test_postgres.cpp LIBS dorv_data)
dorv_server_tests(test_postgres)
