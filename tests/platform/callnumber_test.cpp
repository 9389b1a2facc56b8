#include "platform/dialer/callnumber.h"
#include "platform/dialer/dialersettings.h"

#include <gtest/gtest.h>

using namespace hb::dialer;

namespace {

// One number as typed, read in a home country, and what goes to a tel: link and after ATDT.
struct DialCase {
    const char* typed;
    const char* home;
    const char* link;
    const char* modem;
};

class DialStringTest : public ::testing::TestWithParam<DialCase> {};

TEST_P(DialStringTest, TheLinkIsRfc3966AndTheModemDialsTheExtensionAfterAPause)
{
    const DialCase& c = GetParam();
    const CallNumber number = readNumber(QString::fromUtf8(c.typed), QString::fromLatin1(c.home));
    EXPECT_EQ(telLink(number), QString::fromLatin1(c.link));
    EXPECT_EQ(modemDigits(DialerSettings(), number), QString::fromLatin1(c.modem));
}

const DialCase Cases[] = {
    // The United States, and the five ways people write an extension.
    {"(555) 123-4567 x89", "US", "tel:+15551234567;ext=89", "5551234567,89"},
    {"555-123-4567 ext. 89", "US", "tel:+15551234567;ext=89", "5551234567,89"},
    {"555.123.4567 ext 89", "US", "tel:+15551234567;ext=89", "5551234567,89"},
    {"555 123 4567,89", "US", "tel:+15551234567;ext=89", "5551234567,89"},
    {"tel:+1-555-123-4567;ext=89", "US", "tel:+15551234567;ext=89", "5551234567,89"},
    {"+1 (555) 123-4567", "US", "tel:+15551234567", "5551234567"},
    // Letters are the keypad's digits.
    {"1-800-FLOWERS", "US", "tel:+18003569377", "18003569377"},
    {"(555) GET-FOOD x12", "US", "tel:+15554383663;ext=12", "5554383663,12"},
    // The United Kingdom: the trunk 0 at home, the international prefix from elsewhere.
    {"020 7946 0018", "GB", "tel:+442079460018", "02079460018"},
    {"020 7946 0018 ext. 204", "GB", "tel:+442079460018;ext=204", "02079460018,204"},
    {"+44 20 7946 0018", "US", "tel:+442079460018", "011442079460018"},
    // Germany.
    {"030 1234567", "DE", "tel:+49301234567", "0301234567"},
    {"+49 (0)30 1234567 x5", "DE", "tel:+49301234567;ext=5", "0301234567,5"},
    {"+49 30 1234567", "GB", "tel:+49301234567", "0049301234567"},
    // Not a number of any length that country has: dialed as typed, digits only.
    {"12", "US", "tel:12", "12"},
    {"room 4-7", "US", "tel:47", "47"},
    {"call me", "US", "tel:", ""},
};

INSTANTIATE_TEST_SUITE_P(Numbers, DialStringTest, ::testing::ValuesIn(Cases));

TEST(DialString, ThePrefixOfTheOutsideLineKeepsOnlyWhatAModemDials)
{
    DialerSettings settings;
    settings.prefix = QStringLiteral("9, ");
    EXPECT_EQ(modemDigits(settings, readNumber(QStringLiteral("555.123.4567"), QStringLiteral("US"))),
              QStringLiteral("9,5551234567"));
    EXPECT_EQ(modemDigits(settings, readNumber(QStringLiteral("#31#"), QStringLiteral("US"))),
              QStringLiteral("9,31"));
}

TEST(DialString, UnderstoodOrNotIsTold)
{
    EXPECT_TRUE(readNumber(QStringLiteral("1-800-FLOWERS"), QStringLiteral("US")).understood);
    EXPECT_FALSE(readNumber(QStringLiteral("12"), QStringLiteral("US")).understood);
    EXPECT_FALSE(readNumber(QStringLiteral(""), QStringLiteral("US")).understood);
}

TEST(HomeCountry, TheListHoldsTheUsualCountriesAndTheDefaultIsOneOfThem)
{
    const QStringList countries = homeCountries();
    for (const char* code : {"US", "GB", "DE", "FR"})
        EXPECT_TRUE(countries.contains(QLatin1String(code))) << code;
    EXPECT_TRUE(countries.contains(defaultHomeCountry()));
    EXPECT_EQ(countryName(QStringLiteral("DE")), QStringLiteral("Germany"));
}

} // namespace
