// The fuzzer of lexer, parser, binder and both renderers; CONTRIBUTING.md tells how to run it.
#include <cstdio>
#include <cstdlib>

#include "statementcheck.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static auto* const check = new StatementCheck;
    const QString fault = check->fault(QByteArray(reinterpret_cast<const char*>(data), qsizetype(size)));
    if (fault.isEmpty()) return 0;
    fprintf(stderr, "%s\n", qPrintable(fault));
    abort();
}
