#pragma once

// Contact cards as phones, mail programs and web accounts write them: vCard 2.1 (with QUOTED-PRINTABLE
// and CHARSET), 3.0 (RFC 2426) and 4.0 (RFC 6350). Reading takes folded lines, grouped properties
// ("item1.TEL"), parameters in every spelling, a byte order mark and any line ends. Widget-free.

#include <QByteArray>
#include <QMap>
#include <QString>
#include <QStringList>
#include <QVector>

namespace hb::vcard {

// One content line. The value is kept as the file escapes it, decoded to text, so that a structured
// value can still be split at its unescaped semicolons.
struct Property {
    QString group;                         // "item1" of "item1.TEL", else empty
    QString name;                          // upper case
    QMap<QString, QStringList> params;     // upper-case names; a 2.1 bare "HOME" is a TYPE
    QString value;
    qsizetype droppedBytes = 0;            // a picture or sound, left unread: its size

    // The TYPE values in lower case, "home,work" split; a 2.1 "PREF" counts as one too.
    QStringList types() const;
    bool hasType(const QString& type) const { return types().contains(type); }
    QString param(const QString& name) const;
    QString text() const;                  // the whole value unescaped
    QStringList components() const;        // split at ";" and unescaped: N, ADR, ORG
    QStringList list() const;              // split at "," and unescaped: CATEGORIES

    static Property make(const QString& name, const QString& text, const QStringList& types = {});
    static Property structured(const QString& name, const QStringList& parts, const QStringList& types = {});
};

struct Card {
    QString version;                       // "2.1", "3.0", "4.0"; empty when the card gave none
    QVector<Property> properties;
    bool ended = true;                     // false when the file stopped inside the card

    const Property* first(const QString& name) const;
    QVector<const Property*> all(const QString& name) const;
};

struct ReadResult {
    QVector<Card> cards;
    bool isVCard = false;                  // a BEGIN:VCARD was found
    bool tooLarge = false;                 // more lines than any address book holds: reading stopped
};

ReadResult read(const QByteArray& bytes);

enum class Version { V30, V40 };
// CR LF line ends, lines folded at 75 bytes without splitting a character.
QByteArray write(const QVector<Card>& cards, Version version);

// Escapes text for a value: backslash, comma, semicolon and line ends.
QString escaped(const QString& text);

// A date of BDAY or ANNIVERSARY as "yyyy-MM-dd", or "--MM-dd" without a year; the text itself when it
// is no date of these forms, so that the import counts it as not read.
QString dateText(const QString& value);

} // namespace hb::vcard
