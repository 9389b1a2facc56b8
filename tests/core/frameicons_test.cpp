#include "core/frameicons.h"
#include "platform/ui/contrast.h"

#include <QApplication>
#include <QImage>
#include <QPalette>
#include <QStyle>
#include <gtest/gtest.h>

namespace {

// The share of the drawn (opaque) pixels of an icon that stand out from the toolbar's ground at the
// AA level of text.
double readableShare(const QIcon& icon, const QColor& ground)
{
    const QImage image = icon.pixmap(48, 48).toImage().convertToFormat(QImage::Format_ARGB32);
    int drawn = 0, readable = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor pixel = image.pixelColor(x, y);
            if (pixel.alpha() < 250)
                continue;
            ++drawn;
            if (hb::ui::contrastRatio(pixel, ground) >= 4.5)
                ++readable;
        }
    }
    return drawn ? double(readable) / drawn : 0;
}

TEST(FrameIcons, TheMarksDrawnOnTheToolbarFollowALightAndADarkPalette)
{
    // Made once, as the toolbar makes them, and then shown under each palette in turn.
    QList<std::pair<const char*, QIcon>> icons;
    for (const char* key : {"Bold", "Italic", "Left", "Center", "Right", "Grid"})
        icons.append({key, hb::ownToolbarIcon(QString::fromLatin1(key))});
    const QPalette saved = QApplication::palette();
    QPalette dark = saved;
    dark.setColor(QPalette::Window, QColor(0x31, 0x36, 0x3b));
    dark.setColor(QPalette::WindowText, QColor(0xfc, 0xfc, 0xfc));
    for (const QPalette& palette : {QApplication::style()->standardPalette(), dark}) {
        QApplication::setPalette(palette);
        const QColor ground = palette.color(QPalette::Window);
        for (const auto& [key, icon] : icons) {
            SCOPED_TRACE(std::string(key) + " on " + ground.name().toStdString());
            EXPECT_GT(readableShare(icon, ground), 0.6);
        }
    }
    QApplication::setPalette(saved);
}

} // namespace
