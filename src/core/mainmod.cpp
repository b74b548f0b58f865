#include "core/mainmod.h"

#include "data/recordset.h"
#include "data/values/fold.h"
#include "platform/folders.h"

using namespace Qt::Literals::StringLiterals;

namespace core {

QString programTitle() {
    return u"Dorvalist"_s;
}

QString programVersion() {
    return QString::fromUtf8(DORV_VERSION);
}

QString MainMod::GetPhones(qint64 cardCode) {
    data::Recordset card(
        gConn, data::Sql(u"SELECT ΤΗΛΕΦΩΝΟ1,ΤΗΛΕΦΩΝΟ2,ΤΗΛΕΦΩΝΟ3,ΤΗΛΕΦΩΝΟ4,ΚΙΝΗΤΟ from CARDS where CODE=?"_s, cardCode));
    QStringList numbers;
    for (int i = 0; !card.isEmpty() && i < card.fieldCount(); ++i)
        if (const QString number = card.field(i).text(); !number.isEmpty()) numbers << number;
    return numbers.join(u", "_s);
}

bool MainMod::mayChange(const QString& owner) const {
    return !onlyReads() || data::fold(owner) == data::fold(gUserName);
}

void MainMod::playButtonSound(const QString& fileName) {
    if (services.settings.number(u"Options"_s, u"Sounds"_s, 1) == 1)
        playSound(platform::programFolder() + u"/sounds/"_s + fileName);
}

namespace {

// Page 1253 lays the Greek block at a fixed distance from Unicode, but for the capital alpha with tonos.
int page1253(char16_t ch) {
    if (ch < 0x80) return ch;
    if (ch == u'Ά') return 0xA2;
    if (ch >= 0x0384 && ch <= 0x03CE) return ch - 0x02D0;
    if (ch >= 0xA0 && ch <= 0xBB) return ch;
    return '?';
}

int page737(int code) {
    switch (code) {
        case 192:
        case 224:
        case 250:
            return 228;
        case 223:
            return 229;
        case 242:
            return 170;
        case 243:
            return 169;
        case 249:
            return 224;
        case 251:
            return 232;
        case 252:
            return 230;
        case 253:
            return 231;
        case 254:
            return 233;
        default:
            break;
    }
    if (code >= 193 && code <= 209) return code - 65;
    if (code >= 211 && code <= 217) return code - 66;
    if (code >= 220 && code <= 222) return code + 5;
    if (code >= 225 && code <= 248) return code - 73;
    return code;
}

}  // namespace

QByteArray AnsiToDos(const QString& text) {
    QByteArray bytes;
    bytes.reserve(text.size());
    for (const QChar ch : text) bytes.append(static_cast<char>(page737(page1253(ch.unicode()))));
    return bytes;
}

}  // namespace core
