#pragma once

// A keyring for tests: passwords kept in memory and answered on the event loop, as the desktop's keyring
// answers; or no keyring at all. Installed for the life of the object.

#include "exchange/serverpassword.h"

#include <QHash>
#include <QTimer>

class MemoryPasswords : public hb::cardsync::PasswordStore {
public:
    explicit MemoryPasswords(bool answers = true) : answers_(answers) {}

    void read(const QString& key, std::function<void(std::optional<QString>)> done) override
    {
        const std::optional<QString> found =
            answers_ && kept.contains(key) ? std::optional<QString>(kept.value(key)) : std::nullopt;
        QTimer::singleShot(0, [done = std::move(done), found] { done(found); });
    }

    void write(const QString& key, const QString& password, std::function<void(bool)> done) override
    {
        if (answers_)
            kept.insert(key, password);
        QTimer::singleShot(0, [done = std::move(done), stored = answers_] { done(stored); });
    }

    QHash<QString, QString> kept;

private:
    bool answers_;
};

// Puts a keyring in place of the desktop's and the old one back at the end.
class KeyringInPlace {
public:
    explicit KeyringInPlace(bool answers = true)
    {
        auto store = std::make_unique<MemoryPasswords>(answers);
        store_ = store.get();
        old_ = hb::cardsync::setPasswordStore(std::move(store));
    }
    ~KeyringInPlace() { hb::cardsync::setPasswordStore(std::move(old_)); }
    MemoryPasswords& store() { return *store_; }

private:
    MemoryPasswords* store_;
    std::unique_ptr<hb::cardsync::PasswordStore> old_;
};
