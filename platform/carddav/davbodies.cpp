#include "platform/carddav/davbodies.h"

#include <QXmlStreamWriter>

namespace hb::carddav {

namespace {

const QString Dav = QStringLiteral("DAV:");
const QString CardDav = QStringLiteral("urn:ietf:params:xml:ns:carddav");

struct Property {
    const QString& ns;
    const char* name;
};

void writeProp(QXmlStreamWriter& xml, std::initializer_list<Property> properties)
{
    xml.writeStartElement(Dav, QStringLiteral("prop"));
    for (const Property& property : properties)
        xml.writeEmptyElement(property.ns, QString::fromLatin1(property.name));
    xml.writeEndElement();
}

// The namespaces are declared once, at the root, so that the body reads short.
void begin(QXmlStreamWriter& xml, const QString& ns, const char* root)
{
    xml.writeNamespace(Dav, QStringLiteral("d"));
    xml.writeNamespace(CardDav, QStringLiteral("c"));
    xml.writeStartDocument();
    xml.writeStartElement(ns, QString::fromLatin1(root));
}

QByteArray propfind(std::initializer_list<Property> properties)
{
    QByteArray body;
    QXmlStreamWriter xml(&body);
    begin(xml, Dav, "propfind");
    writeProp(xml, properties);
    xml.writeEndDocument();
    return body;
}

} // namespace

QByteArray discoveryPropfind()
{
    return propfind({{Dav, "current-user-principal"}, {CardDav, "addressbook-home-set"}, {Dav, "resourcetype"},
                     {Dav, "displayname"}});
}

QByteArray booksPropfind() { return propfind({{Dav, "resourcetype"}, {Dav, "displayname"}}); }

QByteArray listingPropfind() { return propfind({{Dav, "resourcetype"}, {Dav, "getetag"}, {Dav, "sync-token"}}); }

QByteArray syncCollection(const QString& token)
{
    QByteArray body;
    QXmlStreamWriter xml(&body);
    begin(xml, Dav, "sync-collection");
    xml.writeTextElement(Dav, QStringLiteral("sync-token"), token);
    xml.writeTextElement(Dav, QStringLiteral("sync-level"), QStringLiteral("1"));
    writeProp(xml, {{Dav, "getetag"}});
    xml.writeEndDocument();
    return body;
}

QByteArray multiget(const QStringList& hrefs)
{
    QByteArray body;
    QXmlStreamWriter xml(&body);
    begin(xml, CardDav, "addressbook-multiget");
    writeProp(xml, {{Dav, "getetag"}, {CardDav, "address-data"}});
    for (const QString& href : hrefs)
        xml.writeTextElement(Dav, QStringLiteral("href"), href);
    xml.writeEndDocument();
    return body;
}

}  // namespace hb::carddav
