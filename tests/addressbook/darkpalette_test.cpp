#include "editingfixture.h"

#include "platform/ui/contrast.h"

#include <QApplication>
#include <QMap>
#include <QImage>
#include <QPalette>
#include <QPlainTextEdit>
#include <QStyle>

using namespace hb;

namespace {

// A dark colour scheme as KDE's Breeze Dark gives it.
QPalette darkPalette()
{
    QPalette p;
    p.setColor(QPalette::Window, QColor(0x31, 0x36, 0x3b));
    p.setColor(QPalette::WindowText, QColor(0xfc, 0xfc, 0xfc));
    p.setColor(QPalette::Base, QColor(0x23, 0x26, 0x29));
    p.setColor(QPalette::Text, QColor(0xfc, 0xfc, 0xfc));
    p.setColor(QPalette::Button, QColor(0x31, 0x36, 0x3b));
    p.setColor(QPalette::ButtonText, QColor(0xfc, 0xfc, 0xfc));
    return p;
}

class DarkPaletteTest : public EditingTest {
protected:
    void TearDown() override
    {
        QApplication::setPalette(saved);
        EditingTest::TearDown();
    }
    // The contrast of every label drawn on a ground the window fixes, by name, with the palette in force.
    QMap<QString, double> labelContrasts(const QPalette& palette, const QString& picture)
    {
        QApplication::setPalette(palette);
        FrmAddressBook& w = open();
        keepPicture(&w, picture);
        QMap<QString, double> contrasts;
        for (QLabel* label : w.findChildren<QLabel*>()) {
            const QWidget* ground = label;
            while (ground && ground != &w && !ground->autoFillBackground())
                ground = ground->parentWidget();
            if (!ground || ground == &w || label->objectName().isEmpty())
                continue;
            contrasts[label->objectName()] = ui::contrastRatio(label->palette().color(QPalette::WindowText),
                                                               ground->palette().color(QPalette::Window));
        }
        forms::unloadAll();
        return contrasts;
    }
    const QPalette saved = QApplication::palette();
};

TEST_F(DarkPaletteTest, LabelsOnTheWindowsOwnGroundsStayReadableUnderALightAndADarkScheme)
{
    const QPalette light = QApplication::style()->standardPalette();
    const QMap<QString, double> lit = labelContrasts(light, QStringLiteral("ListingsLight"));
    const QMap<QString, double> dark = labelContrasts(darkPalette(), QStringLiteral("ListingsDark"));
    ASSERT_GT(lit.size(), 20);
    ASSERT_EQ(lit.keys(), dark.keys());
    for (auto it = lit.cbegin(); it != lit.cend(); ++it) {
        SCOPED_TRACE(it.key().toStdString());
        // Text the window colours itself keeps its contrast; text that follows the scheme reads at AA level.
        EXPECT_GE(dark[it.key()] + 1e-9, std::min(4.5, it.value()));
        EXPECT_NEAR(dark[it.key()], it.value(), 1e-9) << "the scheme does not change text on a fixed ground";
    }
    EXPECT_GE(dark.value(QStringLiteral("lblIndividuals")), 4.5);
}

// The notes boxes keep all four edges on a screen scaled by a fraction (150 %), where the style's own
// frame lost three of them.
TEST_F(DarkPaletteTest, NotesBoxesKeepTheirFourEdgesAtOneAndAHalfTimesTheSize)
{
    FrmAddressBook& w = open();
    for (const char* name : {"txtNotes", "txtIndNotes"}) {
        SCOPED_TRACE(name);
        auto* box = control<QPlainTextEdit>(w, QString::fromLatin1(name));
        ASSERT_NE(box, nullptr);
        QImage picture(box->size() * 3 / 2, QImage::Format_ARGB32);
        picture.setDevicePixelRatio(1.5);
        picture.fill(Qt::transparent);
        box->render(&picture);
        const QColor inside = picture.pixelColor(picture.width() / 3, picture.height() / 2);
        // An edge is one logical pixel: one or two pixels of the picture, the outermost or the one inside it.
        const auto edgeContrast = [&](QPoint outer, QPoint step) {
            return std::max(ui::contrastRatio(picture.pixelColor(outer), inside),
                            ui::contrastRatio(picture.pixelColor(outer + step), inside));
        };
        const int right = picture.width() - 1, bottom = picture.height() - 1;
        EXPECT_GT(edgeContrast({picture.width() / 3, 0}, {0, 1}), 1.5) << "top";
        EXPECT_GT(edgeContrast({0, picture.height() / 2}, {1, 0}), 1.5) << "left";
        EXPECT_GT(edgeContrast({picture.width() / 3, bottom}, {0, -1}), 1.5) << "bottom";
        EXPECT_GT(edgeContrast({right, picture.height() / 2}, {-1, 0}), 1.5) << "right";
    }
}

TEST(Contrast, RatiosAreTheGuidelinesOnes)
{
    EXPECT_NEAR(ui::contrastRatio(Qt::black, Qt::white), 21.0, 1e-9);
    EXPECT_NEAR(ui::contrastRatio(Qt::white, QColor(192, 192, 192)), 1.81, 0.01);
    EXPECT_EQ(ui::readableOn(QColor(192, 192, 192)), QColor(Qt::black));
    EXPECT_EQ(ui::readableOn(QColor(0, 0, 192)), QColor(Qt::white));
}

} // namespace
