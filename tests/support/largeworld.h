#pragma once

#include <QString>
#include <QTemporaryDir>

// The largest database the 16-bit record numbers allow: 32767 listings with one individual each, in a
// program folder of its own, made once per process and shared by every benchmark.
class LargeWorld {
public:
    static constexpr int Listings = 32767;
    static LargeWorld& instance();

    // Starts a session on it (Setup, as the program does) and ends it again.
    void open();
    void close();
    QString programDir() const { return dir_.path(); }

private:
    LargeWorld();
    QTemporaryDir dir_;
};
