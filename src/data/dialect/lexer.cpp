#include "data/dialect/lexer.h"

#include <algorithm>
#include <array>
#include <string_view>

using namespace Qt::Literals::StringLiterals;

namespace data::dialect {

namespace {

struct KeywordName {
    std::string_view name;
    Keyword keyword;
};

// In alphabetical order, for the binary search.
constexpr std::array keywordNames = {
    KeywordName{"ALIKE", Keyword::Like},
    KeywordName{"ALL", Keyword::All},
    KeywordName{"AND", Keyword::And},
    KeywordName{"AS", Keyword::As},
    KeywordName{"ASC", Keyword::Asc},
    KeywordName{"BETWEEN", Keyword::Between},
    KeywordName{"BY", Keyword::By},
    KeywordName{"DELETE", Keyword::Delete},
    KeywordName{"DESC", Keyword::Desc},
    KeywordName{"DISTINCT", Keyword::Distinct},
    KeywordName{"DISTINCTROW", Keyword::Distinct},
    KeywordName{"EXISTS", Keyword::Exists},
    KeywordName{"FALSE", Keyword::False},
    KeywordName{"FROM", Keyword::From},
    KeywordName{"GROUP", Keyword::Group},
    KeywordName{"HAVING", Keyword::Having},
    KeywordName{"IN", Keyword::In},
    KeywordName{"INNER", Keyword::Inner},
    KeywordName{"INSERT", Keyword::Insert},
    KeywordName{"INTO", Keyword::Into},
    KeywordName{"IS", Keyword::Is},
    KeywordName{"JOIN", Keyword::Join},
    KeywordName{"LEFT", Keyword::Left},
    KeywordName{"LIKE", Keyword::Like},
    KeywordName{"MOD", Keyword::Mod},
    KeywordName{"NOT", Keyword::Not},
    KeywordName{"NULL", Keyword::Null},
    KeywordName{"ON", Keyword::On},
    KeywordName{"OR", Keyword::Or},
    KeywordName{"ORDER", Keyword::Order},
    KeywordName{"OUTER", Keyword::Outer},
    KeywordName{"PERCENT", Keyword::Percent},
    KeywordName{"RIGHT", Keyword::Right},
    KeywordName{"SELECT", Keyword::Select},
    KeywordName{"SET", Keyword::Set},
    KeywordName{"TOP", Keyword::Top},
    KeywordName{"TRUE", Keyword::True},
    KeywordName{"UNION", Keyword::Union},
    KeywordName{"UPDATE", Keyword::Update},
    KeywordName{"VALUES", Keyword::Values},
    KeywordName{"WHERE", Keyword::Where},
    KeywordName{"XOR", Keyword::Xor},
};

Keyword keywordOf(QStringView word) {
    std::array<char, 11> upper;
    if (word.size() > qsizetype(upper.size())) return Keyword::None;
    for (qsizetype i = 0; i < word.size(); ++i) {
        const char16_t c = word[i].unicode();
        if (c >= 'a' && c <= 'z')
            upper[size_t(i)] = char(c - 'a' + 'A');
        else if (c >= 'A' && c <= 'Z')
            upper[size_t(i)] = char(c);
        else
            return Keyword::None;
    }
    const std::string_view name(upper.data(), size_t(word.size()));
    const auto it = std::lower_bound(keywordNames.begin(), keywordNames.end(), name,
                                     [](const KeywordName& k, std::string_view n) { return k.name < n; });
    return it != keywordNames.end() && it->name == name ? it->keyword : Keyword::None;
}

bool isDigit(QChar c) {
    return c >= u'0' && c <= u'9';
}

bool startsWord(QChar c) {
    return c.isLetter() || c == u'_';
}

bool continuesWord(QChar c) {
    return c.isLetterOrNumber() || c == u'_' || c == u'$' || c.isMark();
}

class Lexer {
public:
    explicit Lexer(const Places& places) : places_(places), text_(places.statement()) {}

    std::vector<Token> run() {
        tokens_.reserve(size_t(text_.size() / 5 + 8));
        while (true) {
            while (at_ < text_.size() && (text_[at_].isSpace() || text_[at_] == QChar(0xFEFF))) ++at_;
            if (at_ >= text_.size()) break;
            next();
        }
        Token end;
        end.position = text_.size();
        tokens_.push_back(end);
        return std::move(tokens_);
    }

private:
    QChar peek(qsizetype ahead) const { return at_ + ahead < text_.size() ? text_[at_ + ahead] : QChar(); }

    void next() {
        const QChar c = text_[at_];
        if (startsWord(c)) return word();
        if (isDigit(c) || (c == u'.' && isDigit(peek(1)) && !afterName())) return number();
        switch (c.unicode()) {
            case u'[':
                return enclosed(TokenKind::Bracketed, u']', u"]");
            case u'`':
                return enclosed(TokenKind::Bracketed, u'`', u"`");
            case u'\'':
                return text(c);
            case u'"':
                return text(c);
            case u'#':
                return enclosed(TokenKind::Date, u'#', u"#");
            default:
                return sign(c);
        }
    }

    // "t.1" is no number.
    bool afterName() const { return !tokens_.empty() && tokens_.back().isName() && tokens_.back().end() == at_; }

    Token& push(TokenKind kind, qsizetype length) {
        Token token;
        token.kind = kind;
        token.position = at_;
        token.source = text_.mid(at_, length);
        token.content = token.source;
        at_ += length;
        tokens_.push_back(token);
        return tokens_.back();
    }

    void word() {
        qsizetype length = 1;
        while (at_ + length < text_.size() && continuesWord(text_[at_ + length])) ++length;
        Token& token = push(TokenKind::Word, length);
        token.keyword = keywordOf(token.source);
    }

    void number() {
        qsizetype length = 0;
        while (isDigit(peek(length))) ++length;
        if (peek(length) == u'.') {
            ++length;
            while (isDigit(peek(length))) ++length;
        }
        if (peek(length) == u'e' || peek(length) == u'E') {
            qsizetype exponent = length + 1;
            if (peek(exponent) == u'+' || peek(exponent) == u'-') ++exponent;
            if (isDigit(peek(exponent))) {
                while (isDigit(peek(exponent))) ++exponent;
                length = exponent;
            }
        }
        push(TokenKind::Number, length);
        if (at_ < text_.size() && startsWord(text_[at_]))
            places_.fail(at_, u"περίμενα κενό ή πράξη μετά τον αριθμό %1, βρήκα %2"_s.arg(shown(tokens_.back().source),
                                                                                          shown(text_.mid(at_, 1))));
    }

    void enclosed(TokenKind kind, QChar close, QStringView closeName) {
        const qsizetype end = text_.indexOf(close, at_ + 1);
        if (end < 0)
            places_.fail(at_, u"περίμενα %1 που να κλείνει το %2, βρήκα το τέλος της εντολής"_s.arg(
                                  closeName, shown(text_.mid(at_, 20))));
        Token& token = push(kind, end + 1 - at_);
        token.content = token.source.mid(1, token.source.size() - 2);
        refuseNul(token);
        if (kind == TokenKind::Bracketed && token.content.trimmed().isEmpty())
            places_.fail(token.position, u"περίμενα όνομα μέσα στις αγκύλες"_s);
    }

    void text(QChar quote) {
        qsizetype end = at_ + 1;
        while (true) {
            end = text_.indexOf(quote, end);
            if (end < 0)
                places_.fail(at_,
                             u"περίμενα %1 που να κλείνει το κείμενο %2, βρήκα το τέλος της εντολής"_s.arg(quote).arg(
                                 shown(text_.mid(at_, 20))));
            if (end + 1 >= text_.size() || text_[end + 1] != quote) break;
            end += 2;
        }
        Token& token = push(TokenKind::Text, end + 1 - at_);
        token.content = token.source.mid(1, token.source.size() - 2);
        refuseNul(token);
    }

    // Engines end a statement at a NUL.
    void refuseNul(const Token& token) {
        if (const qsizetype at = token.source.indexOf(QChar(u'\0')); at >= 0)
            places_.fail(token.position + at, u"ο χαρακτήρας με κωδικό 0 δεν επιτρέπεται"_s);
    }

    void sign(QChar c) {
        const QChar following = peek(1);
        switch (c.unicode()) {
            case u',':
                return one(Sign::Comma);
            case u'.':
            case u'!':
                return one(Sign::Dot);
            case u'(':
                return one(Sign::Open);
            case u')':
                return one(Sign::Close);
            case u'*':
                return one(Sign::Star);
            case u'+':
                return one(Sign::Plus);
            case u'-':
                return one(Sign::Minus);
            case u'/':
                return one(Sign::Slash);
            case u'\\':
                return one(Sign::Backslash);
            case u'^':
                return one(Sign::Caret);
            case u'&':
                return one(Sign::Ampersand);
            case u';':
                return one(Sign::Semicolon);
            case u'=':
                if (following == u'<') return two(Sign::LessEqual);
                if (following == u'>') return two(Sign::GreaterEqual);
                return one(Sign::Equal);
            case u'<':
                if (following == u'=') return two(Sign::LessEqual);
                if (following == u'>') return two(Sign::NotEqual);
                return one(Sign::Less);
            case u'>':
                if (following == u'=') return two(Sign::GreaterEqual);
                if (following == u'<') return two(Sign::NotEqual);
                return one(Sign::Greater);
            default:
                unexpected(c);
        }
    }

    void one(Sign sign) { push(TokenKind::Sign, 1).sign = sign; }
    void two(Sign sign) { push(TokenKind::Sign, 2).sign = sign; }

    [[noreturn]] void unexpected(QChar c) {
        const qsizetype length = c.isHighSurrogate() && peek(1).isLowSurrogate() ? 2 : 1;
        const QString name =
            c.isPrint() || length == 2 ? shown(text_.mid(at_, length)) : u"με κωδικό %1"_s.arg(c.unicode());
        places_.fail(at_, u"ο χαρακτήρας %1 δεν έχει θέση εδώ· περίμενα λέξη, αριθμό ή πράξη"_s.arg(name));
    }

    const Places& places_;
    QStringView text_;
    qsizetype at_ = 0;
    std::vector<Token> tokens_;
};

}  // namespace

std::vector<Token> tokenize(const Places& places) {
    return Lexer(places).run();
}

QString textOf(const Token& token) {
    QString text = token.content.toString();
    if (token.kind == TokenKind::Text && token.content.contains(token.source[0])) {
        const QString quote(token.source[0]);
        text.replace(quote + quote, quote);
    }
    return text;
}

}  // namespace data::dialect
