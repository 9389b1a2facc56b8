#include "exchange/serverpassword.h"

#include <qt6keychain/keychain.h>

namespace hb::cardsync {
namespace {

const QString Service = QStringLiteral("Homebook address book server");

class KeyringStore : public PasswordStore {
public:
    void read(const QString& key, std::function<void(std::optional<QString>)> done) override
    {
        auto* job = new QKeychain::ReadPasswordJob(Service);
        job->setKey(key);
        QObject::connect(job, &QKeychain::Job::finished, [done = std::move(done)](QKeychain::Job* finished) {
            auto* read = static_cast<QKeychain::ReadPasswordJob*>(finished);
            done(read->error() == QKeychain::NoError ? std::optional<QString>(read->textData()) : std::nullopt);
        });
        job->start();
    }

    void write(const QString& key, const QString& password, std::function<void(bool)> done) override
    {
        auto* job = new QKeychain::WritePasswordJob(Service);
        job->setKey(key);
        job->setTextData(password);
        QObject::connect(job, &QKeychain::Job::finished, [done = std::move(done)](QKeychain::Job* finished) {
            done(finished->error() == QKeychain::NoError);
        });
        job->start();
    }
};

std::unique_ptr<PasswordStore>& current()
{
    static std::unique_ptr<PasswordStore> store = std::make_unique<KeyringStore>();
    return store;
}

}  // namespace

PasswordStore& passwords()
{
    return *current();
}

std::unique_ptr<PasswordStore> setPasswordStore(std::unique_ptr<PasswordStore> store)
{
    return std::exchange(current(), std::move(store));
}

QString passwordKey(const QString& user, const QString& address)
{
    return user + QLatin1Char('@') + address.trimmed();
}

}  // namespace hb::cardsync
