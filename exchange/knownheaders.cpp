#include "exchange/knownheaders.h"

#include <QHash>

namespace hb::knownheaders {

namespace {

struct Heading {
    const char* text;   // lower case, as compared
    const char* field;
};

// Earlier entries win where two columns name one field, so each program's home columns come before its
// business ones and plain names before numbered ones.
const Heading Headings[] = {
    // The program's own names, and what anyone might write.
    {"first name", "First Name"}, {"middle name", "Middle Name"}, {"last name", "Last Name"},
    {"given name", "First Name"}, {"additional name", "Middle Name"}, {"family name", "Last Name"},
    {"surname", "Last Name"}, {"forename", "First Name"},
    {"address1", "Address1"}, {"address 1", "Address1"}, {"address2", "Address2"}, {"address 2", "Address2"},
    {"street", "Address1"}, {"address", "Address1"}, {"city", "City"}, {"town", "City"},
    {"state", "State"}, {"province", "State"}, {"region", "State"},
    {"zip", "Zip"}, {"zip code", "Zip"}, {"zipcode", "Zip"}, {"postal code", "Zip"}, {"postcode", "Zip"},
    {"country", "Country"}, {"phone", "Phone"}, {"telephone", "Phone"}, {"home phone", "Phone"},
    {"cell", "Cell"}, {"mobile", "Cell"}, {"mobile phone", "Cell"}, {"cell phone", "Cell"},
    {"fax", "Fax"}, {"email", "Email"}, {"e-mail", "Email"}, {"e-mail address", "Email"},
    {"email address", "Email"}, {"notes", "Notes"}, {"note", "Notes"},
    {"important date", "Important Date"}, {"anniversary", "Important Date"},
    {"straße", "Address1"}, {"strasse", "Address1"}, {"ort", "City"}, {"plz", "Zip"}, {"postleitzahl", "Zip"},
    {"land", "Country"}, {"telefon", "Phone"}, {"mobil", "Cell"}, {"handy", "Cell"},
    {"rue", "Address1"}, {"adresse", "Address1"}, {"téléphone", "Phone"},
    {"calle", "Address1"}, {"dirección", "Address1"}, {"ciudad", "City"}, {"teléfono", "Phone"},
    // Outlook, English.
    {"home street", "Address1"}, {"home street 2", "Address2"}, {"home city", "City"}, {"home state", "State"},
    {"home postal code", "Zip"}, {"home country/region", "Country"}, {"home fax", "Fax"},
    {"business fax", "Fax"},
    // Outlook, German.
    {"vorname", "First Name"}, {"weitere vornamen", "Middle Name"}, {"nachname", "Last Name"},
    {"straße privat", "Address1"}, {"straße privat 2", "Address2"}, {"ort privat", "City"},
    {"region privat", "State"}, {"postleitzahl privat", "Zip"}, {"land/region privat", "Country"},
    {"telefon (privat)", "Phone"}, {"mobiltelefon", "Cell"}, {"fax privat", "Fax"},
    {"fax geschäftlich", "Fax"}, {"e-mail-adresse", "Email"}, {"notizen", "Notes"}, {"jahrestag", "Important Date"},
    // Outlook, French.
    {"prénom", "First Name"}, {"deuxième prénom", "Middle Name"}, {"nom", "Last Name"},
    {"rue (domicile)", "Address1"}, {"rue (domicile) 2", "Address2"}, {"ville (domicile)", "City"},
    {"dép/région (domicile)", "State"}, {"code postal (domicile)", "Zip"}, {"pays/région (domicile)", "Country"},
    {"téléphone (domicile)", "Phone"}, {"tél. mobile", "Cell"}, {"télécopie (domicile)", "Fax"},
    {"télécopie (bureau)", "Fax"}, {"adresse de messagerie", "Email"},
    {"anniversaire de mariage ou fête", "Important Date"},
    // Outlook, Spanish.
    {"nombre", "First Name"}, {"segundo nombre", "Middle Name"}, {"apellidos", "Last Name"},
    {"calle del domicilio", "Address1"}, {"calle del domicilio 2", "Address2"}, {"ciudad de residencia", "City"},
    {"provincia o estado de residencia", "State"}, {"código postal de residencia", "Zip"},
    {"país o región de residencia", "Country"}, {"particular", "Phone"}, {"móvil", "Cell"},
    {"fax particular", "Fax"}, {"fax del trabajo", "Fax"}, {"dirección de correo electrónico", "Email"},
    {"notas", "Notes"}, {"aniversario", "Important Date"},
    // Thunderbird, English.
    {"primary email", "Email"}, {"home address", "Address1"}, {"home address 2", "Address2"},
    {"home zipcode", "Zip"}, {"home country", "Country"}, {"mobile number", "Cell"}, {"fax number", "Fax"},
    // Thunderbird, German.
    {"primäre e-mail-adresse", "Email"}, {"tel. privat", "Phone"}, {"mobil-tel.-nr.", "Cell"},
    {"fax-nummer", "Fax"}, {"privat: adresse", "Address1"}, {"privat: adresse 2", "Address2"},
    {"privat: ort", "City"}, {"privat: bundesland", "State"}, {"privat: plz", "Zip"}, {"privat: land", "Country"},
    // Thunderbird, French.
    {"nom de famille", "Last Name"}, {"adresse électronique principale", "Email"}, {"tél. personnel", "Phone"},
    {"portable", "Cell"}, {"adresse privée", "Address1"}, {"adresse privée 2", "Address2"},
    {"ville", "City"}, {"état/province", "State"}, {"code postal", "Zip"}, {"pays", "Country"},
    // Thunderbird, Spanish.
    {"correo electrónico primario", "Email"}, {"teléfono particular", "Phone"}, {"número de móvil", "Cell"},
    {"número de fax", "Fax"}, {"dirección particular", "Address1"}, {"dirección particular 2", "Address2"},
    {"ciudad particular", "City"}, {"provincia particular", "State"}, {"código postal particular", "Zip"},
    {"país particular", "Country"},
    // Google Contacts, the present export and the older one.
    {"e-mail 1 - value", "Email"}, {"phone 1 - value", "Phone"}, {"address 1 - street", "Address1"},
    {"address 1 - extended address", "Address2"}, {"address 1 - city", "City"}, {"address 1 - region", "State"},
    {"address 1 - postal code", "Zip"}, {"address 1 - country", "Country"},
};

struct Known {
    QString field;
    int rank = 0;
};

const QHash<QString, Known>& known()
{
    static const QHash<QString, Known> byText = [] {
        QHash<QString, Known> table;
        int rank = 0;
        for (const Heading& h : Headings)
            table.insert(QString::fromUtf8(h.text), {QString::fromLatin1(h.field), rank++});
        return table;
    }();
    return byText;
}

std::optional<Known> lookUp(const QString& heading)
{
    const auto it = known().find(heading.simplified().toLower());
    if (it == known().end())
        return std::nullopt;
    return *it;
}

} // namespace

QString fieldOf(const QString& heading)
{
    const std::optional<Known> found = lookUp(heading);
    return found ? found->field : QString();
}

std::optional<Assignment> assignmentOf(const QStringList& row)
{
    // The best column for each field.
    QHash<QString, std::pair<int, int>> best;   // field: rank, column
    for (int column = 0; column < row.size(); ++column) {
        const std::optional<Known> found = lookUp(row[column]);
        if (!found)
            continue;
        const auto it = best.find(found->field);
        if (it == best.end() || found->rank < it->first)
            best.insert(found->field, {found->rank, column});
    }
    const bool named = best.contains(QStringLiteral("First Name")) || best.contains(QStringLiteral("Last Name"));
    if (best.size() < 2 || !named)
        return std::nullopt;
    Assignment assignment;
    assignment.fields = QStringList(row.size(), QString());
    for (auto it = best.cbegin(); it != best.cend(); ++it)
        assignment.fields[it->second] = it.key();
    assignment.listBy = best.value(QStringLiteral("Last Name"), {0, -1}).second;
    return assignment;
}

} // namespace hb::knownheaders
