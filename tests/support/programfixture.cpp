#include "programfixture.h"

#include "core/application.h"
#include "core/errors.h"
#include "core/forms.h"
#include "core/frmmdi.h"
#include "core/schema.h"
#include "core/session.h"
#include "core/setup.h"
#include "platform/clock.h"

#include <QApplication>
#include <QDir>

void ProgramFixture::SetUp()
{
    ASSERT_TRUE(dir_.isValid());
    QDir(dir_.path()).mkpath(QStringLiteral("Data/backup"));
    hb::schema::createMainShell(dataDir() + QStringLiteral("hb10db.shell"));
    hb::schema::createExportShell(dataDir() + QStringLiteral("export.mdb"));
    hb::resetSession();
    hb::clearProgramEnded();
    hb::setProgramDirectory(dir_.path());
    hb::clock::pin(pinnedNow());
    auto scripted = std::make_unique<ScriptedWindows>();
    dialogs_ = scripted.get();
    previous_ = hb::ui::setWindowService(std::move(scripted));
}

void ProgramFixture::TearDown()
{
    EXPECT_EQ(dialogs_->problems(), QStringList()) << "dialogs left unanswered or answers left unused";
    hb::forms::unloadAll();
    frame_.reset();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    hb::resetSession();
    hb::clock::unpin();
    hb::setProgramDirectory(QString());
    hb::ui::setWindowService(std::move(previous_));
    dialogs_ = nullptr;
}

bool ProgramFixture::guarded(const std::function<void()>& work)
{
    return hb::runGuarded(QStringLiteral("test"), work) && !hb::programEnded();
}

bool ProgramFixture::setup() { return guarded([] { hb::Setup(); }); }

bool ProgramFixture::startProgram()
{
    auto* frame = new hb::FrmMDI;
    frame_.reset(frame);
    frame->show();
    return guarded([frame] { frame->MDIForm_Load(); });
}

const ShownMessage& ProgramFixture::lastMessage() const
{
    static const ShownMessage none;
    return dialogs_->messages().empty() ? none : dialogs_->messages().back();
}
