#pragma once

#include "platform/storage/dberror.h"

#include <QStringList>

namespace hb::storage {

struct Connection;

// The engine's error by number, its text filled from args (%1, %2).
DbError engineError(int number, const QStringList& args = {}, const QString& sql = {});

// SQLite's failure code rc on sql, with SQLite's message (by default the
// connection's last one), as the engine's error.
DbError sqliteError(Connection& connection, int rc, const QString& sql, const QString& message = {});

}  // namespace hb::storage
