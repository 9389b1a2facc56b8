#pragma once

#include "programfixture.h"
#include "windowdriver.h"

#include "core/forms.h"
#include "core/frmmdi.h"
#include "tools/formabout.h"

#include <QAction>
#include <QComboBox>

// The whole program started, the about window answered, the listings up.
class FrameFixture : public ProgramFixture {
protected:
    void SetUp() override
    {
        ProgramFixture::SetUp();
        ASSERT_TRUE(startProgram());
        ASSERT_TRUE(guarded([] { click(hb::forms::get<hb::FormAbout>(), QStringLiteral("cmdOK")); }));
        ASSERT_NE(frame(), nullptr);
    }

    static hb::FrmMDI* frame() { return hb::FrmMDI::instance(); }
    // Menu items by their names and toolbar buttons by their keys: both are actions of the frame.
    static QAction* action(const QString& name) { return control<QAction>(*frame(), name); }
    static QComboBox* combo(const char* name) { return control<QComboBox>(*frame(), QString::fromLatin1(name)); }
    bool trigger(const QString& name)
    {
        return guarded([&] { action(name)->trigger(); });
    }
};
