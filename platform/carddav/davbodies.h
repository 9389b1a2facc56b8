#pragma once

// The XML bodies this client sends: PROPFIND for discovery and listings, the sync-collection report of
// RFC 6578 and the addressbook-multiget report of RFC 6352.

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace hb::carddav {

// What discovery asks of each address it tries: enough to tell a principal, a home or an address book.
QByteArray discoveryPropfind();
// The members of a home: which are address books, and their names.
QByteArray booksPropfind();
// The members of an address book with their ETags, and the collection's own sync token.
QByteArray listingPropfind();
QByteArray syncCollection(const QString& token);
QByteArray multiget(const QStringList& hrefs);

}  // namespace hb::carddav
