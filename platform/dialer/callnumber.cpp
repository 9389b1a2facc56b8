#include "platform/dialer/callnumber.h"

#include "platform/dialer/dialersettings.h"

#include <QLocale>
#include <phonenumbers/phonenumberutil.h>
#include <set>
#include <string>

namespace hb::dialer {

namespace {

using i18n::phonenumbers::PhoneNumber;
using i18n::phonenumbers::PhoneNumberUtil;

QString digitsOf(const QString& text)
{
    QString digits;
    for (const QChar c : text) {
        if (c.isDigit())
            digits += QChar(QLatin1Char(char('0' + c.digitValue())));
    }
    return digits;
}

QString fromStd(const std::string& text) { return QString::fromStdString(text); }

} // namespace

CallNumber readNumber(const QString& typed, const QString& homeCountry)
{
    CallNumber result;
    result.typedDigits = digitsOf(typed);
    const PhoneNumberUtil& util = *PhoneNumberUtil::GetInstance();
    PhoneNumber number;
    const std::string region = homeCountry.trimmed().toUpper().toStdString();
    if (util.Parse(typed.trimmed().toStdString(), region, &number) != PhoneNumberUtil::NO_PARSING_ERROR
        || !util.IsPossibleNumber(number))
        return result;
    result.understood = true;
    result.extension = digitsOf(fromStd(number.extension()));
    number.clear_extension();
    std::string text;
    util.Format(number, PhoneNumberUtil::E164, &text);
    result.international = fromStd(text);
    // A number of the home country is dialed as its people write it at home (trunk prefix and all); any
    // other with the home country's international call prefix.
    if (util.GetCountryCodeForRegion(region) != number.country_code()) {
        util.FormatOutOfCountryCallingNumber(number, region, &text);
        result.fromHome = digitsOf(fromStd(text));
        return result;
    }
    util.Format(number, PhoneNumberUtil::NATIONAL, &text);
    result.fromHome = digitsOf(fromStd(text));
    // The national form of some countries (the US's "1") leaves the trunk prefix out; one the user typed
    // before the number is needed there for long distance and toll-free calls, so it stays.
    std::string trunk;
    util.GetNddPrefixForRegion(region, true, &trunk);
    if (!trunk.empty() && !typed.contains(QLatin1Char('+')) && !result.fromHome.startsWith(fromStd(trunk))) {
        std::string keyed = typed.toStdString();
        util.ConvertAlphaCharactersInNumber(&keyed);
        std::string significant;
        util.GetNationalSignificantNumber(number, &significant);
        if (digitsOf(fromStd(keyed)).startsWith(fromStd(trunk + significant)))
            result.fromHome.prepend(fromStd(trunk));
    }
    return result;
}

QString telLink(const CallNumber& number)
{
    if (!number.understood)
        return QStringLiteral("tel:") + number.typedDigits;
    QString link = QStringLiteral("tel:") + number.international;
    if (!number.extension.isEmpty())
        link += QStringLiteral(";ext=") + number.extension;
    return link;
}

QString modemDigits(const DialerSettings& settings, const CallNumber& number)
{
    QString prefix;
    for (const QChar c : settings.prefix) {
        if (c.isDigit() || QStringLiteral("*#,Ww!@").contains(c))
            prefix += c;
    }
    if (!number.understood)
        return prefix + number.typedDigits;
    QString digits = prefix + number.fromHome;
    if (!number.extension.isEmpty())
        digits += QLatin1Char(',') + number.extension;
    return digits;
}

QString defaultHomeCountry()
{
    const QLocale::Territory territory = QLocale::system().territory();
    const QString code = territory == QLocale::AnyTerritory ? QString() : QLocale::territoryToCode(territory);
    return homeCountries().contains(code) ? code : QStringLiteral("US");
}

QStringList homeCountries()
{
    std::set<std::string> regions;
    PhoneNumberUtil::GetInstance()->GetSupportedRegions(&regions);
    QStringList codes;
    for (const std::string& region : regions)
        codes << fromStd(region);
    return codes;
}

QString countryName(const QString& code)
{
    const QLocale::Territory territory = QLocale::codeToTerritory(code);
    return territory == QLocale::AnyTerritory ? code : QLocale::territoryToString(territory);
}

} // namespace hb::dialer
