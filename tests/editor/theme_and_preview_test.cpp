// The theme's sheets as applied, and the hidden preview's picture.
#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QDir>
#include <QImage>
#include <QListWidget>
#include <QScrollArea>

#include "editor/image_area.h"
#include "editor/theme.h"
#include "editor_test_util.h"

namespace grainsmith::test {
namespace {

using ThemeTest = EditorTest;

TEST_F(ThemeTest, SheetsAreFilledInAndApplied) {
    const QString main = theme::mainStyleSheet();
    const QString buttons = theme::buttonStyleSheet();
    ASSERT_FALSE(main.isEmpty());
    ASSERT_FALSE(buttons.isEmpty());
    for (const char* placeholder : {"HILITE_COLOR", "BACKGROUND_COLOR", "FOREGROUND_COLOR", "BUTTON_PRESSED_COLOR",
                                    "SLIDER_SLIT_COLOR", "SLIDER_HANDLE_COLOR", "MAC", "10pt"}) {
        EXPECT_FALSE(main.contains(QLatin1String(placeholder))) << placeholder;
        EXPECT_FALSE(buttons.contains(QLatin1String(placeholder))) << placeholder;
    }
    EXPECT_TRUE(main.contains(QLatin1String("font: 75 8pt \"Verdana\";")));
    EXPECT_TRUE(main.contains(QLatin1String("font-weight: 900;")));
    EXPECT_TRUE(main.contains(QLatin1String("color: rgb(165, 165, 165);")));
    EXPECT_TRUE(main.contains(QLatin1String("background-color: rgb(40, 40, 40);")));
    EXPECT_TRUE(main.contains(QLatin1String("background: rgb(242, 112, 0);")));
    EXPECT_TRUE(buttons.contains(QLatin1String("border-color: rgb(165, 165, 165);")));

    MainWindow dialog;
    EXPECT_EQ(dialog.findChild<QWidget*>(QStringLiteral("centralWidget"))->styleSheet(), main);
    EXPECT_EQ(dialog.buttonBox()->styleSheet(), buttons);
}

TEST_F(ThemeTest, SubstitutionsRunInTheirOrder) {
    // The group box title offset is replaced, not removed; the button margin goes; a colour
    // placeholder inside a longer name is not touched by an earlier, shorter one.
    EXPECT_EQ(theme::fillMainTemplate(QStringLiteral("a { margin-top: 0.5ex; /* MAC GROUP BOX TITLE FIX */ }")),
              QStringLiteral("a { margin-top: 0.0ex; }"));
    EXPECT_EQ(theme::fillMainTemplate(QStringLiteral("b { margin-bottom: 8px; /* MAC BUTTON FIX */ 10pt }")),
              QStringLiteral("b {  8pt }"));
    EXPECT_EQ(theme::fillMainTemplate(QStringLiteral("HILITE_COLOR BUTTON_PRESSED_COLOR")),
              QStringLiteral("rgb(165, 165, 165) rgb(242, 112, 0)"));
    EXPECT_EQ(theme::fillButtonTemplate(QStringLiteral("BACKGROUND_COLOR FOREGROUND_COLOR")),
              QStringLiteral("BACKGROUND_COLOR rgb(165, 165, 165)"));
}

using PreviewTest = EditorTest;

TEST_F(PreviewTest, PictureIsTheTextureSliceWithoutClamping) {
    ImageArea area(nullptr, nullptr);
    EXPECT_EQ(area.image().size(), QSize(256, 256));
    area.render(nullptr);
    EXPECT_EQ(area.image().pixel(10, 10), 0xFFFFFFFFu);

    const Kind* constant = findKind("Constant");
    ASSERT_TRUE(constant && constant->implemented());
    Texture3D* texture = constant->ops->create();
    std::array<char, 256> record{};
    texture->getDescription(record.data());
    const struct {
        float value;
        uint32_t grey;
    } cases[] = {{0.5f, 127}, {1.0f, 255}, {1.01f, 1}, {-0.01f, 254}, {0.0f, 0}};
    for (const auto& c : cases) {
        writeParam(constant->ops->parameters()[0], reinterpret_cast<unsigned char*>(record.data()), c.value);
        texture->setStateFromDescription(record.data());
        area.render(texture);
        EXPECT_EQ(area.image().pixel(200, 3), 0xFF000000u | c.grey << 16 | c.grey << 8 | c.grey) << c.value;
    }
    constant->ops->destroy(texture);

    area.resize(300, 200);
    area.show();
    EXPECT_EQ(area.image().size(), QSize(200, 200));
}

TEST_F(PreviewTest, TheDialogKeepsItsPreviewHidden) {
    MainWindow dialog;
    dialog.show();
    EXPECT_FALSE(dialog.findChild<QWidget*>(QStringLiteral("imageAreaParent"))->isVisible());
    EXPECT_NE(dialog.imageArea(), nullptr);
}

// Renders the dialog on a few pages to PNG files for a person to look at (see the README).
TEST_F(PreviewTest, ScreenshotsOfThePages) {
    const QString dir = QStringLiteral(GRAINSMITH_SCREENSHOT_DIR);
    ASSERT_TRUE(QDir().mkpath(dir));
    MainWindow dialog;
    dialog.show();
    for (const char* kind : {"Brick", "Checkerboard", "Voronoi Tiles", "Wood"}) {
        if (dialog.pageFor(kind) == nullptr) continue;
        std::array<char, 256> record = defaultRecord(kind);
        std::array<char, 44> transform;
        TransformBlock{}.writeTo(transform.data());
        dialog.loadFromHost(record.data(), transform.data());
        QCoreApplication::processEvents();
        QString file = QString::fromLatin1(kind).toLower().replace(QLatin1Char(' '), QLatin1Char('-'));
        const QString path = dir + QLatin1String("/editor-") + file + QLatin1String(".png");
        ASSERT_TRUE(dialog.grab().save(path)) << path.toStdString();
        // The whole page, scrolled or not.
        QWidget* page = dialog.pageFor(kind);
        ASSERT_TRUE(page->grab().save(dir + QLatin1String("/page-") + file + QLatin1String(".png")));
    }
}

}  // namespace
}  // namespace grainsmith::test
