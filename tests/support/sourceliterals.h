// The string literals of a source file.
#pragma once

#include <QString>
#include <QVector>

namespace support {

// Literals that stand one behind another are one.
struct SourceLiteral {
    QString text;    // as the program has it
    bool isWide;     // u"..."
    QString before;  // code in front of it and behind it, without comments and blanks
    QString after;
    int line;
};

// Understands comments, raw literals, escapes, digit separators and preprocessor lines (which have none).
QVector<SourceLiteral> sourceLiterals(const QString& source);

}  // namespace support
