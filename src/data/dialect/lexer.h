// A statement cut into words, names, numbers, texts, dates and signs.
#pragma once

#include <QString>
#include <QStringView>
#include <vector>

#include "data/dialect/places.h"

namespace data::dialect {

enum class TokenKind { End, Word, Bracketed, Number, Text, Date, Sign };

enum class Sign {
    None,
    Comma,
    Dot,
    Open,
    Close,
    Star,
    Plus,
    Minus,
    Slash,
    Backslash,
    Caret,
    Ampersand,
    Equal,
    NotEqual,
    Less,
    LessEqual,
    Greater,
    GreaterEqual,
    Semicolon,
};

enum class Keyword {
    None,
    All,
    And,
    As,
    Asc,
    Between,
    By,
    Delete,
    Desc,
    Distinct,
    Exists,
    False,
    From,
    Group,
    Having,
    In,
    Inner,
    Insert,
    Into,
    Is,
    Join,
    Left,
    Like,
    Mod,
    Not,
    Null,
    On,
    Or,
    Order,
    Outer,
    Percent,
    Right,
    Select,
    Set,
    Top,
    True,
    Union,
    Update,
    Values,
    Where,
    Xor,
};

struct Token {
    TokenKind kind = TokenKind::End;
    Sign sign = Sign::None;
    Keyword keyword = Keyword::None;  // of a Word that is one; a name may be spelled the same
    qsizetype position = 0;
    QStringView source;   // as it stands in the statement
    QStringView content;  // without brackets, quotes (still doubled inside) or #

    qsizetype end() const { return position + source.size(); }
    bool isName() const { return kind == TokenKind::Word || kind == TokenKind::Bracketed; }
};

// All tokens and an End behind them. The tokens look into the statement that `places` holds.
std::vector<Token> tokenize(const Places& places);

// The text between quotes, its doubled quotes made single.
QString textOf(const Token& token);

}  // namespace data::dialect
