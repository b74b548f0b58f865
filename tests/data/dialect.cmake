# The translation of the dialect.
foreach(name corpus semantics functions errors robustness)
    dorv_test(test_dialect_${name} SOURCES test_dialect_${name}.cpp dialectdatabase.cpp dialectdatabase.h
        LIBS dorv_data SQLite::SQLite3)
endforeach()
dorv_engine_tests(test_dialect_corpus test_dialect_semantics test_dialect_functions)
# Typed statements, on both engines at once.
dorv_test(test_statements SOURCES test_statements.cpp statementfile.cpp statementfile.h statementrows.cpp statementrows.h
    LIBS dorv_schema)
dorv_server_tests(test_statements)
