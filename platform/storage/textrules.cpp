#include "platform/storage/textrules.h"

#include <sqlite3.h>

#include <algorithm>
#include <memory>

namespace hb::storage {
namespace {

char16_t fold(char16_t c)
{
    if (c < 0x80)
        return (c >= 'A' && c <= 'Z') ? char16_t(c + 32) : c;
    return QChar(c).toCaseFolded().unicode();
}

bool isAscii(const unsigned char* text, int size)
{
    for (int i = 0; i < size; ++i) {
        if (text[i] & 0x80)
            return false;
    }
    return true;
}

// A letter of a "like" pattern or text as the pattern compares it: without case, and without accents, so
// that "eluard" matches "Éluard".
char16_t plainLetter(char16_t c)
{
    return c < 0x80 ? fold(c) : char16_t(baseLetter(c));
}

struct AsciiText {
    const char* data;
    char16_t operator[](int i) const { return char16_t(static_cast<unsigned char>(data[i])); }
};

struct Utf16Text {
    QStringView view;
    char16_t operator[](int i) const { return view[i].unicode(); }
};

int collateNoCase(void*, int aSize, const void* a, int bSize, const void* b)
{
    return compareNoCase(static_cast<const char*>(a), aSize, static_cast<const char*>(b), bSize);
}

void deletePattern(void* pattern)
{
    delete static_cast<LikePattern*>(pattern);
}

QChar escapeArgument(sqlite3_context* context, sqlite3_value* value, bool* ok)
{
    const QString escape = QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_value_text(value)),
                                             sqlite3_value_bytes(value));
    *ok = escape.size() == 1;
    if (!*ok)
        sqlite3_result_error(context, "ESCAPE expression must be a single character", -1);
    return *ok ? escape.at(0) : QChar();
}

// like(pattern, text [, escape]), as SQLite calls it for "text LIKE pattern".
void likeFunction(sqlite3_context* context, int argc, sqlite3_value** argv)
{
    for (int i = 0; i < argc; ++i) {
        if (sqlite3_value_type(argv[i]) == SQLITE_NULL)
            return;  // null in, null out
    }
    QChar escape;
    if (argc == 3) {
        bool ok = false;
        escape = escapeArgument(context, argv[2], &ok);
        if (!ok)
            return;
    }
    auto* pattern = static_cast<LikePattern*>(sqlite3_get_auxdata(context, 0));
    std::unique_ptr<LikePattern> fresh;
    if (!pattern || pattern->escape() != escape) {
        const QString text = QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_value_text(argv[0])),
                                               sqlite3_value_bytes(argv[0]));
        fresh = std::make_unique<LikePattern>(text, escape);
        pattern = fresh.get();
    }
    const auto* text = sqlite3_value_text(argv[1]);
    const int size = sqlite3_value_bytes(argv[1]);
    const bool result = isAscii(text, size)
        ? pattern->matchesAscii(reinterpret_cast<const char*>(text), size)
        : pattern->matches(QString::fromUtf8(reinterpret_cast<const char*>(text), size));
    sqlite3_result_int(context, result ? 1 : 0);
    if (fresh)
        sqlite3_set_auxdata(context, 0, fresh.release(), deletePattern);
}

}  // namespace

char32_t decodeUtf8(const unsigned char* text, int size, int* at)
{
    const unsigned char lead = text[*at];
    const int length = lead < 0xC0 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    if (length == 1 || *at + length > size) {
        ++*at;
        return lead;
    }
    char32_t code = lead & (0x7F >> length);
    for (int k = 1; k < length; ++k) {
        const unsigned char next = text[*at + k];
        if ((next & 0xC0) != 0x80) {
            ++*at;
            return lead;
        }
        code = (code << 6) | (next & 0x3F);
    }
    *at += length;
    return code;
}

char32_t baseLetter(char32_t c)
{
    static std::vector<char16_t> cache(0x10000, 0);
    if (c >= 0x10000)
        return QChar::toCaseFolded(c);
    char16_t& known = cache[c];
    if (!known) {
        QChar q{char16_t(c)};
        while (q.decompositionTag() == QChar::Canonical)
            q = q.decomposition().at(0);
        known = q.toCaseFolded().unicode();
    }
    return known;
}

namespace {

// One pass over both texts; `accents` compares the folded characters, else their base letters.
// *plain is set when both were ASCII to their end.
int comparePass(const unsigned char* pa, int aSize, const unsigned char* pb, int bSize, bool accents, bool* plain)
{
    int i = 0, j = 0;
    while (i < aSize && j < bSize) {
        char32_t ca = pa[i], cb = pb[j];
        if ((ca | cb) < 0x80) {  // the common case: no decoding, no table
            ++i;
            ++j;
            if (ca != cb) {
                ca = fold(char16_t(ca));
                cb = fold(char16_t(cb));
            }
        } else {
            *plain = false;
            ca = decodeUtf8(pa, aSize, &i);
            cb = decodeUtf8(pb, bSize, &j);
            ca = accents ? QChar::toCaseFolded(ca) : baseLetter(ca);
            cb = accents ? QChar::toCaseFolded(cb) : baseLetter(cb);
        }
        if (ca != cb)
            return ca < cb ? -1 : 1;
    }
    if (i < aSize || j < bSize)
        *plain = *plain && !((i < aSize ? pa[i] : pb[j]) & 0x80);
    const bool aLeft = i < aSize, bLeft = j < bSize;
    return aLeft == bLeft ? 0 : (aLeft ? 1 : -1);
}

}  // namespace

int compareNoCase(const char* a, int aSize, const char* b, int bSize)
{
    const auto* pa = reinterpret_cast<const unsigned char*>(a);
    const auto* pb = reinterpret_cast<const unsigned char*>(b);
    bool plain = true;
    // Letters with accents sort beside their base letters; the accents only break a tie.
    const int byLetters = comparePass(pa, aSize, pb, bSize, false, &plain);
    if (byLetters != 0 || plain)
        return byLetters;
    return comparePass(pa, aSize, pb, bSize, true, &plain);
}

LikePattern::LikePattern(QStringView pattern, QChar escape) : m_escape(escape)
{
    for (int i = 0; i < pattern.size(); ++i) {
        const QChar c = pattern[i];
        if (!escape.isNull() && c == escape && i + 1 < pattern.size()) {
            m_tokens.push_back({Kind::Literal, false, plainLetter(pattern[++i].unicode())});
        } else if (c == u'*') {
            if (m_tokens.empty() || m_tokens.back().kind != Kind::Star)
                m_tokens.push_back({Kind::Star});
        } else if (c == u'?') {
            m_tokens.push_back({Kind::One});
        } else if (c == u'#') {
            m_tokens.push_back({Kind::Digit});
        } else if (c == u'[' && pattern.indexOf(u']', i + 1) > i) {
            i = parseList(pattern, i);
        } else {
            m_tokens.push_back({Kind::Literal, false, plainLetter(c.unicode())});
        }
    }
}

// Reads the list that opens at pattern[open]; returns the index of its "]".
int LikePattern::parseList(QStringView pattern, int open)
{
    const int close = int(pattern.indexOf(u']', open + 1));
    Token token{Kind::List};
    int i = open + 1;
    if (i < close && pattern[i] == u'!') {
        token.negated = true;
        ++i;
    }
    token.first = int(m_ranges.size());
    for (; i < close; ++i) {
        char16_t low = pattern[i].unicode(), high = low;
        if (i + 2 < close && pattern[i + 1] == u'-') {
            high = pattern[i + 2].unicode();
            i += 2;
        }
        m_ranges.push_back({low, high, fold(low), fold(high)});
    }
    token.count = int(m_ranges.size()) - token.first;
    if (token.count > 0 || token.negated)
        m_tokens.push_back(token);
    return close;
}

bool LikePattern::matchesOne(const Token& token, char16_t c) const
{
    switch (token.kind) {
    case Kind::One: return true;
    case Kind::Digit: return c >= u'0' && c <= u'9';
    case Kind::Literal: return plainLetter(c) == token.folded;
    case Kind::List: {
        const char16_t f = fold(c);
        const auto begin = m_ranges.begin() + token.first;
        const bool inList = std::any_of(begin, begin + token.count, [c, f](const Range& r) {
            return (c >= r.low && c <= r.high) || (f >= r.foldedLow && f <= r.foldedHigh);
        });
        return inList != token.negated;
    }
    case Kind::Star: break;
    }
    return false;
}

// Every token but "*" takes exactly one character, so remembering the last
// star is enough to backtrack.
template <typename Text>
bool LikePattern::matchText(const Text& text, int size) const
{
    const int count = int(m_tokens.size());
    int p = 0, t = 0, starP = -1, starT = 0;
    while (t < size) {
        if (p < count && m_tokens[p].kind == Kind::Star) {
            starP = ++p;
            starT = t;
        } else if (p < count && matchesOne(m_tokens[p], text[t])) {
            ++p;
            ++t;
        } else if (starP >= 0) {
            p = starP;
            t = ++starT;
        } else {
            return false;
        }
    }
    while (p < count && m_tokens[p].kind == Kind::Star)
        ++p;
    return p == count;
}

bool LikePattern::matches(QStringView text) const
{
    return matchText(Utf16Text{text}, int(text.size()));
}

bool LikePattern::matchesAscii(const char* text, int size) const
{
    return matchText(AsciiText{text}, size);
}

void registerTextRules(sqlite3* db)
{
    sqlite3_create_collation_v2(db, "NOCASE", SQLITE_UTF8, nullptr, collateNoCase, nullptr);
    sqlite3_create_collation_v2(db, "TEXTORDER", SQLITE_UTF8, nullptr, collateNoCase, nullptr);
    const int flags = SQLITE_UTF8 | SQLITE_DETERMINISTIC;
    sqlite3_create_function_v2(db, "like", 2, flags, nullptr, likeFunction, nullptr, nullptr, nullptr);
    sqlite3_create_function_v2(db, "like", 3, flags, nullptr, likeFunction, nullptr, nullptr, nullptr);
}

}  // namespace hb::storage
