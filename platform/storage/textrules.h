#pragma once

#include <QString>
#include <QStringView>

#include <vector>

struct sqlite3;

// How the engine compares and matches text: without regard to case, also
// beyond ASCII, and with the wildcards of the engine's own "like", whose
// letters match without regard to accents as well.
namespace hb::storage {

// The code point at text[*at], moving *at past it. A byte that starts no
// valid sequence stands for itself.
char32_t decodeUtf8(const unsigned char* text, int size, int* at);

// Orders two UTF-8 texts as the engine did: by their letters without case
// or accents ("Éclair" beside "eclair", before "ZETA"), accents breaking a
// tie; texts that differ only in case are equal. It works on the bytes
// without decoding them into strings: it runs on every comparison of a sort.
int compareNoCase(const char* a, int aSize, const char* b, int bSize);

// The letter a character is built on, case-folded: "É" and "é" are "e".
// Characters without a canonical decomposition stand for themselves, folded.
char32_t baseLetter(char32_t c);

// A "like" pattern: "*" any text, "?" one character, "#" one digit, and the
// lists "[abc]", "[!abc]", "[a-z]". A list or the escape character makes any
// wildcard literal. A letter matches its base letter in any case: "e" and
// "É" match each other; a list compares case only.
class LikePattern {
public:
    explicit LikePattern(QStringView pattern, QChar escape = QChar());

    bool matches(QStringView text) const;
    // The same for text known to be ASCII, without decoding it.
    bool matchesAscii(const char* text, int size) const;

    QChar escape() const { return m_escape; }

private:
    enum class Kind : unsigned char { Star, One, Digit, Literal, List };
    struct Token {
        Kind kind;
        bool negated = false;
        char16_t folded = 0;    // Literal
        int first = 0, count = 0;  // List: its ranges in m_ranges
    };
    struct Range {
        char16_t low, high, foldedLow, foldedHigh;
    };

    int parseList(QStringView pattern, int open);
    template <typename Text> bool matchText(const Text& text, int size) const;
    bool matchesOne(const Token& token, char16_t c) const;

    std::vector<Token> m_tokens;
    std::vector<Range> m_ranges;
    QChar m_escape;
};

// Installs NOCASE and like() in the connection; both replace SQLite's own,
// which know case only in ASCII and have other wildcards.
void registerTextRules(sqlite3* db);

}  // namespace hb::storage
