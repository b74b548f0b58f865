# The translation of the dialect.
foreach(name corpus semantics functions errors robustness)
    dorv_test(test_dialect_${name} SOURCES test_dialect_${name}.cpp dialectdatabase.cpp dialectdatabase.h
        LIBS dorv_data SQLite::SQLite3)
endforeach()
dorv_engine_tests(test_dialect_corpus test_dialect_semantics test_dialect_functions test_dialect_errors
    test_dialect_robustness)
# Typed statements, on both engines at once.
dorv_test(test_statements SOURCES test_statements.cpp statementfile.cpp statementfile.h statementrows.cpp statementrows.h
    LIBS dorv_schema)
dorv_server_tests(test_statements)
# The fuzzer's corpus; it renders for both engines, and asks SQLite.
dorv_test(test_dialect_fuzzed SOURCES test_dialect_fuzzed.cpp ../fuzz/statementcheck.cpp ../fuzz/statementcheck.h
    ../fuzz/corpusfile.h dialectdatabase.cpp dialectdatabase.h LIBS dorv_data SQLite::SQLite3)
