#include "exchange/knownheaders.h"

#include <gtest/gtest.h>

using namespace hb::knownheaders;

namespace {

QStringList row(const char* utf8) { return QString::fromUtf8(utf8).split(QLatin1Char(',')); }

// The assigned columns as "heading=field", in column order, and the List By column's heading.
QString shown(const QStringList& headings, const Assignment& a)
{
    QStringList parts;
    for (int c = 0; c < a.fields.size(); ++c) {
        if (!a.fields[c].isEmpty())
            parts << headings[c] + QLatin1Char('=') + a.fields[c];
    }
    return parts.join(QStringLiteral("; ")) + QStringLiteral(" | List By: ") + headings.value(a.listBy);
}

} // namespace

// Header rows shaped like each program's export (the columns that matter, in the program's order, with
// some of those that do not between them).
TEST(KnownHeaders, EachProgramsHeaderRowAssignsItsColumns)
{
    const struct {
        const char* program;
        const char* headings;
        const char* assigned;
    } cases[] = {
        {"Outlook, English",
         "Title,First Name,Middle Name,Last Name,Suffix,Company,Business Street,Business City,Home Street,Home Street 2,"
         "Home City,Home State,Home Postal Code,Home Country/Region,Business Fax,Business Phone,Home Fax,Home Phone,"
         "Mobile Phone,Anniversary,Birthday,E-mail Address,Notes",
         "First Name=First Name; Middle Name=Middle Name; Last Name=Last Name; Home Street=Address1; "
         "Home Street 2=Address2; Home City=City; Home State=State; Home Postal Code=Zip; Home Country/Region=Country; "
         "Home Fax=Fax; Home Phone=Phone; Mobile Phone=Cell; Anniversary=Important Date; E-mail Address=Email; "
         "Notes=Notes | List By: Last Name"},
        {"Outlook, German",
         "Anrede,Vorname,Weitere Vornamen,Nachname,Suffix,Firma,Straße geschäftlich,Straße privat,Straße privat 2,"
         "Ort privat,Region privat,Postleitzahl privat,Land/Region privat,Fax geschäftlich,Telefon geschäftlich,"
         "Telefon (privat),Mobiltelefon,Jahrestag,Geburtstag,E-Mail-Adresse,Notizen",
         "Vorname=First Name; Weitere Vornamen=Middle Name; Nachname=Last Name; Straße privat=Address1; "
         "Straße privat 2=Address2; Ort privat=City; Region privat=State; Postleitzahl privat=Zip; "
         "Land/Region privat=Country; Fax geschäftlich=Fax; Telefon (privat)=Phone; Mobiltelefon=Cell; "
         "Jahrestag=Important Date; E-Mail-Adresse=Email; Notizen=Notes | List By: Nachname"},
        {"Outlook, French",
         "Titre,Prénom,Deuxième prénom,Nom,Suffixe,Société,Rue (domicile),Rue (domicile) 2,Ville (domicile),"
         "Dép/Région (domicile),Code postal (domicile),Pays/Région (domicile),Télécopie (bureau),"
         "Téléphone (domicile),Tél. mobile,Anniversaire de mariage ou fête,Anniversaire,Adresse de messagerie,Notes",
         "Prénom=First Name; Deuxième prénom=Middle Name; Nom=Last Name; Rue (domicile)=Address1; "
         "Rue (domicile) 2=Address2; Ville (domicile)=City; Dép/Région (domicile)=State; Code postal (domicile)=Zip; "
         "Pays/Région (domicile)=Country; Télécopie (bureau)=Fax; Téléphone (domicile)=Phone; Tél. mobile=Cell; "
         "Anniversaire de mariage ou fête=Important Date; Adresse de messagerie=Email; Notes=Notes | List By: Nom"},
        {"Outlook, Spanish",
         "Tratamiento,Nombre,Segundo nombre,Apellidos,Sufijo,Organización,Calle del domicilio,Calle del domicilio 2,"
         "Ciudad de residencia,Provincia o estado de residencia,Código postal de residencia,"
         "País o región de residencia,Fax del trabajo,Particular,Móvil,Aniversario,Cumpleaños,"
         "Dirección de correo electrónico,Notas",
         "Nombre=First Name; Segundo nombre=Middle Name; Apellidos=Last Name; Calle del domicilio=Address1; "
         "Calle del domicilio 2=Address2; Ciudad de residencia=City; Provincia o estado de residencia=State; "
         "Código postal de residencia=Zip; País o región de residencia=Country; Fax del trabajo=Fax; "
         "Particular=Phone; Móvil=Cell; Aniversario=Important Date; Dirección de correo electrónico=Email; "
         "Notas=Notes | List By: Apellidos"},
        {"Thunderbird, English",
         "First Name,Last Name,Display Name,Nickname,Primary Email,Secondary Email,Screen Name,Work Phone,Home Phone,"
         "Fax Number,Pager Number,Mobile Number,Home Address,Home Address 2,Home City,Home State,Home ZipCode,"
         "Home Country,Work Address,Birth Year,Birth Month,Birth Day,Notes",
         "First Name=First Name; Last Name=Last Name; Primary Email=Email; Home Phone=Phone; Fax Number=Fax; "
         "Mobile Number=Cell; Home Address=Address1; Home Address 2=Address2; Home City=City; Home State=State; "
         "Home ZipCode=Zip; Home Country=Country; Notes=Notes | List By: Last Name"},
        {"Thunderbird, German",
         "Vorname,Nachname,Anzeigename,Spitzname,Primäre E-Mail-Adresse,Sekundäre E-Mail-Adresse,Tel. dienstlich,"
         "Tel. privat,Fax-Nummer,Mobil-Tel.-Nr.,Privat: Adresse,Privat: Adresse 2,Privat: Ort,Privat: Bundesland,"
         "Privat: PLZ,Privat: Land,Notizen",
         "Vorname=First Name; Nachname=Last Name; Primäre E-Mail-Adresse=Email; Tel. privat=Phone; Fax-Nummer=Fax; "
         "Mobil-Tel.-Nr.=Cell; Privat: Adresse=Address1; Privat: Adresse 2=Address2; Privat: Ort=City; "
         "Privat: Bundesland=State; Privat: PLZ=Zip; Privat: Land=Country; Notizen=Notes | List By: Nachname"},
        {"Google Contacts",
         "First Name,Middle Name,Last Name,Nickname,Organization Name,Birthday,Notes,Labels,E-mail 1 - Label,"
         "E-mail 1 - Value,Phone 1 - Label,Phone 1 - Value,Address 1 - Label,Address 1 - Formatted,"
         "Address 1 - Street,Address 1 - City,Address 1 - PO Box,Address 1 - Region,Address 1 - Postal Code,"
         "Address 1 - Country,Address 1 - Extended Address",
         "First Name=First Name; Middle Name=Middle Name; Last Name=Last Name; Notes=Notes; E-mail 1 - Value=Email; "
         "Phone 1 - Value=Phone; Address 1 - Street=Address1; Address 1 - City=City; Address 1 - Region=State; "
         "Address 1 - Postal Code=Zip; Address 1 - Country=Country; Address 1 - Extended Address=Address2 "
         "| List By: Last Name"},
        {"Google Contacts, older",
         "Name,Given Name,Additional Name,Family Name,Birthday,Notes,E-mail 1 - Value,Phone 1 - Value",
         "Given Name=First Name; Additional Name=Middle Name; Family Name=Last Name; Notes=Notes; "
         "E-mail 1 - Value=Email; Phone 1 - Value=Phone | List By: Family Name"},
        {"a header of someone's own, matched by name",
         "Surname, Forename ,Postal Code,E-MAIL ADDRESS,Mobile Phone,Shoe Size",
         "Surname=Last Name;  Forename =First Name; Postal Code=Zip; E-MAIL ADDRESS=Email; Mobile Phone=Cell "
         "| List By: Surname"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.program);
        const QStringList headings = row(c.headings);
        const auto assignment = assignmentOf(headings);
        ASSERT_TRUE(assignment.has_value());
        EXPECT_EQ(assignment->fields.size(), headings.size());
        EXPECT_EQ(shown(headings, *assignment), QString::fromUtf8(c.assigned));
    }
}

TEST(KnownHeaders, ARowOfDataOrOfTooFewHeadingsAssignsNothing)
{
    for (const char* line : {"John,Q,Public,1 Elm St,Springfield,IL", "Last Name", "City,State,Zip",
                             "Smith,Notes,Phone", ""}) {
        SCOPED_TRACE(line);
        EXPECT_FALSE(assignmentOf(row(line)).has_value());
    }
    EXPECT_EQ(fieldOf(QStringLiteral("  e-mail   address ")), QStringLiteral("Email"));
    EXPECT_EQ(fieldOf(QStringLiteral("Shoe Size")), QString());
}
