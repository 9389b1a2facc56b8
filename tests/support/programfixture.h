#pragma once

#include "scriptedwindows.h"

#include <QDateTime>
#include <QTemporaryDir>
#include <QWidget>
#include <gtest/gtest.h>

// A fresh world for each test: a program folder of its own with the blank databases made by the real
// schema code, scripted dialogs, a pinned clock and a session at its start values.
class ProgramFixture : public ::testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    QString programDir() const { return dir_.path() + QStringLiteral("/"); }
    QString dataDir() const { return programDir() + QStringLiteral("Data/"); }
    QString mainDatabase() const { return dataDir() + QStringLiteral("varlo.mdb"); }

    // Runs Setup as the start of the program does; false when the program ended.
    bool setup();
    // Starts the whole program: the frame, the about window's start-up role, the listings window.
    bool startProgram();
    // Runs a piece of work the way the event dispatch does; false when the program ended.
    bool guarded(const std::function<void()>& work);

    ScriptedWindows& dialogs() { return *dialogs_; }
    const ShownMessage& lastMessage() const;

    static QDateTime pinnedNow() { return QDateTime(QDate(2026, 11, 22), QTime(10, 30)); }

private:
    QTemporaryDir dir_;
    ScriptedWindows* dialogs_ = nullptr;
    std::unique_ptr<hb::ui::WindowService> previous_;
    std::unique_ptr<QWidget> frame_;
};
