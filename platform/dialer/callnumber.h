#pragma once

// A number as the user typed it, read by libphonenumber the way people write numbers in the home country:
// keypad letters become digits, and an extension ("x89", "ext. 89", "ext 89", ",89", ";ext=89") is kept apart
// from the number so that it is dialed only after the call connects.

#include <QString>
#include <QStringList>

namespace hb::dialer {

struct DialerSettings;

struct CallNumber {
    bool understood = false;  // libphonenumber read a number of a possible length
    QString international;    // E.164, "+15551234567"; empty when not understood
    QString fromHome;         // the digits a line in the home country dials: "5551234567", "011442079460018"
    QString extension;        // digits to dial once the call is through; empty when none
    QString typedDigits;      // the digits as typed, for a number that was not understood
};

// homeCountry is a two-letter region code such as "US", "GB" or "DE".
CallNumber readNumber(const QString& typed, const QString& homeCountry);

// The RFC 3966 link of a number: "tel:+15551234567;ext=89", or the typed digits for one not understood.
QString telLink(const CallNumber& number);

// What follows ATDT: the outside-line prefix, the number, and a pause (",") before the extension.
QString modemDigits(const DialerSettings& settings, const CallNumber& number);

// The system locale's country; "US" when the locale names none (the C locale).
QString defaultHomeCountry();
// The two-letter codes of every country whose numbers libphonenumber knows.
QStringList homeCountries();
// "Germany" for "DE"; the code itself for one Qt does not know.
QString countryName(const QString& code);

} // namespace hb::dialer
