#pragma once

// The password of the address book server, kept in the desktop's keyring and never in the book. The
// keyring answers later, on the event loop; where none answers, the password is asked for at each sync.

#include <QString>

#include <functional>
#include <memory>
#include <optional>

namespace hb::cardsync {

class PasswordStore {
public:
    virtual ~PasswordStore() = default;
    // nullopt when the keyring holds none or does not answer.
    virtual void read(const QString& key, std::function<void(std::optional<QString>)> done) = 0;
    // False when no keyring took it.
    virtual void write(const QString& key, const QString& password, std::function<void(bool)> done) = 0;
};

// The store in force: the desktop's keyring unless a test put another in its place.
PasswordStore& passwords();
std::unique_ptr<PasswordStore> setPasswordStore(std::unique_ptr<PasswordStore> store);

// The keyring's name for the password of a user on a server.
QString passwordKey(const QString& user, const QString& address);

}  // namespace hb::cardsync
