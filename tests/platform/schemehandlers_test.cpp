#include "platform/ui/qtwindowservice.h"
#include "platform/ui/schemehandlers.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using hb::ui::schemeHandler;

namespace {

// A desktop of its own: the user's and the system's configuration and application folders in a
// temporary folder, put back as they were afterwards.
class SchemeHandlerTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(root.isValid());
        for (const char* name : Variables) {
            saved.append(qgetenv(name));
            wasSet.append(qEnvironmentVariableIsSet(name));
        }
        qputenv("XDG_CONFIG_HOME", path("config").toLocal8Bit());
        qputenv("XDG_CONFIG_DIRS", path("etc").toLocal8Bit());
        qputenv("XDG_DATA_HOME", path("home").toLocal8Bit());
        qputenv("XDG_DATA_DIRS", (path("usr") + QLatin1Char(':') + path("local")).toLocal8Bit());
    }
    void TearDown() override
    {
        for (int i = 0; i < int(std::size(Variables)); ++i) {
            if (wasSet[i])
                qputenv(Variables[i], saved[i]);
            else
                qunsetenv(Variables[i]);
        }
    }

    QString path(const char* dir) const { return root.filePath(QString::fromLatin1(dir)); }
    void write(const QString& file, const QString& text) const
    {
        QDir().mkpath(QFileInfo(file).absolutePath());
        QFile out(file);
        ASSERT_TRUE(out.open(QIODevice::WriteOnly | QIODevice::Text));
        out.write(text.toUtf8());
    }
    void program(const char* dataDir, const QString& id, const QString& types, bool hidden = false) const
    {
        write(path(dataDir) + QStringLiteral("/applications/") + id,
              QStringLiteral("[Desktop Entry]\nType=Application\nName=%1\nExec=true %u\nMimeType=%2\n%3")
                  .arg(id, types, hidden ? QStringLiteral("Hidden=true\n") : QString()));
    }

    static constexpr const char* Variables[] = {"XDG_CONFIG_HOME", "XDG_CONFIG_DIRS", "XDG_DATA_HOME",
                                                "XDG_DATA_DIRS"};
    QTemporaryDir root;
    QList<QByteArray> saved;
    QList<bool> wasSet;
};

TEST_F(SchemeHandlerTest, ADesktopWithoutAPhoneProgramHasNoHandlerAndTheLinkIsNotHandedOver)
{
    program("usr", QStringLiteral("mail.desktop"), QStringLiteral("x-scheme-handler/mailto;"));
    EXPECT_EQ(schemeHandler(QStringLiteral("tel")), QString());
    EXPECT_EQ(schemeHandler(QStringLiteral("mailto")), QStringLiteral("mail.desktop"));
    hb::ui::QtWindowService service;
    EXPECT_FALSE(service.openUrl(QStringLiteral("tel:+15551234567")));
}

TEST_F(SchemeHandlerTest, TheUsersDefaultWinsThenAddedAssociationsThenAnyProgramNotRemoved)
{
    program("usr", QStringLiteral("calls.desktop"), QStringLiteral("text/plain;x-scheme-handler/tel;"));
    program("local", QStringLiteral("phone.desktop"), QStringLiteral("x-scheme-handler/tel"));
    program("usr", QStringLiteral("gone.desktop"), QStringLiteral("x-scheme-handler/tel;"), true);
    EXPECT_EQ(schemeHandler(QStringLiteral("TEL")), QStringLiteral("calls.desktop")) << "any program for it";

    write(path("etc") + QStringLiteral("/mimeapps.list"),
          QStringLiteral("[Removed Associations]\nx-scheme-handler/tel=calls.desktop;\n"));
    EXPECT_EQ(schemeHandler(QStringLiteral("tel")), QStringLiteral("phone.desktop")) << "one removed is passed over";

    write(path("config") + QStringLiteral("/mimeapps.list"),
          QStringLiteral("[Added Associations]\nx-scheme-handler/tel=missing.desktop;gone.desktop;calls.desktop;\n"));
    EXPECT_EQ(schemeHandler(QStringLiteral("tel")), QStringLiteral("calls.desktop"))
        << "the user's own association, past programs not installed or hidden";

    write(path("config") + QStringLiteral("/mimeapps.list"),
          QStringLiteral("[Default Applications]\nx-scheme-handler/tel=missing.desktop;phone.desktop\n"
                         "[Added Associations]\nx-scheme-handler/tel=calls.desktop;\n"));
    EXPECT_EQ(schemeHandler(QStringLiteral("tel")), QStringLiteral("phone.desktop"));
}

} // namespace
