#pragma once

#include <QString>

#include <vector>

namespace hb::storage {

// One token of an SQL text: a word or a name ([bracketed], "quoted", `ticked`), a string literal, a
// number, or one character of punctuation. Comments (-- to the end of the line, /* */) are passed over
// like blanks, so that neither text in quotes nor text in comments ever reads as a clause.
struct Token {
    enum Kind { Word, Name, Literal, Other } kind;
    int start;
    int end;  // one past the last character
    int depth;  // of parentheses around it
    bool unterminated = false;  // a literal or quoted name without its closing quote
};

std::vector<Token> tokenize(const QString& sql);

// True when a literal or a quoted name runs to the end of the text without its closing quote: SQLite
// refuses such a text, and so does every path that reads it first.
bool hasUnterminatedQuote(const std::vector<Token>& tokens);

}  // namespace hb::storage
