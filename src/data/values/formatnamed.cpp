#include "data/values/formatparts.h"

namespace data {
namespace {

// A word for Yes and one for No are the sections of a number's pattern, in which True is -1.
constexpr NamedPattern namedPatterns[] = {
    {u"general date", generalDate},
    {u"long date", u"dddd, d mmmm yyyy"},
    {u"medium date", u"dd-mmm-yy"},
    {u"short date", u"dd/mm/yyyy"},
    {u"long time", u"hh:nn:ss"},
    {u"medium time", u"hh:nn AM/PM"},
    {u"short time", u"hh:nn"},
    {u"general number", generalNumber},
    {u"currency", u"#,##0.00 €"},
    {u"fixed", u"0.00"},
    {u"standard", u"#,##0.00"},
    {u"percent", u"0.00%"},
    {u"scientific", u"0.00E+00"},
    {u"yes/no", u"Ναι;Ναι;Όχι"},
    {u"true/false", u"Αληθές;Αληθές;Ψευδές"},
    {u"on/off", u"Ενεργό;Ενεργό;Ανενεργό"},
};

}  // namespace

std::span<const NamedPattern> allNamedPatterns() {
    return namedPatterns;
}

QStringView resolvedPattern(QStringView pattern) {
    for (const NamedPattern& one : namedPatterns)
        if (pattern.compare(one.name, Qt::CaseInsensitive) == 0) return one.pattern;
    return pattern;
}

}  // namespace data
