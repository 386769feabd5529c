// The dialog as a host meets it: what it opens on, what it loads, and what OK and Cancel
// hand back.
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QListWidget>
#include <QPushButton>
#include <QStackedWidget>
#include <QTest>

#include "editor_test_util.h"
#include "grainsmith/textures/camouflage.h"
#include "grainsmith/textures/checkerboard.h"
#include "grainsmith/textures/psychedelic.h"

namespace grainsmith::test {
namespace {

// A transform whose every value sits on a widget's grain.
TransformBlock sampleTransform() {
    TransformBlock t;
    t.flags = 2;
    t.overallScale = 2.5f;
    t.translate[0] = 0.25f;
    t.translate[1] = -0.5f;
    t.rotate[1] = 0.25f;  // 90 degrees
    t.scale[2] = 0.5f;
    return t;
}

std::array<char, 44> bytesOf(const TransformBlock& t) {
    std::array<char, 44> b;
    t.writeTo(b.data());
    return b;
}

bool pageShown(const MainWindow& dialog, const char* kind) {
    return dialog.stackedWidget()->currentWidget()->isAncestorOf(dialog.pageFor(kind));
}

QListWidgetItem* itemNamed(const MainWindow& dialog, const char* kind) {
    const auto items = dialog.generatorList()->findItems(QLatin1String(kind), Qt::MatchExactly);
    return items.size() == 1 ? items[0] : nullptr;
}

void expectCommonControls(const MainWindow& dialog, const char* kind, int transX, int transY, int rotY, int scaleZ,
                          double overall) {
    const CommonControls& c = dialog.wrapperFor(kind)->common();
    EXPECT_EQ(c.translate[0]->value(), transX);
    EXPECT_EQ(c.translate[1]->value(), transY);
    EXPECT_EQ(c.rotate[1]->value(), rotY);
    EXPECT_EQ(c.scale[2]->value(), scaleZ);
    EXPECT_EQ(c.overallScale->value(), overall);
}

using MainWindowTest = EditorTest;

TEST_F(MainWindowTest, EmptyRecordOpensOnCheckerboardWithTheHostsTransform) {
    MainWindow dialog;
    EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Grainsmith"));
    EXPECT_FALSE(dialog.windowFlags() & Qt::WindowCloseButtonHint);
    std::array<char, 256> record{};
    dialog.loadFromHost(record.data(), bytesOf(sampleTransform()).data());
    EXPECT_EQ(dialog.currentKindName(), "Checkerboard");
    EXPECT_TRUE(pageShown(dialog, "Checkerboard"));
    EXPECT_EQ(itemNamed(dialog, "Checkerboard")->checkState(), Qt::Checked);
    EXPECT_EQ(dialog.generatorList()->currentItem(), itemNamed(dialog, "Checkerboard"));
    expectCommonControls(dialog, "Checkerboard", 25, -50, 90, 50, 2.5);
    const std::array<char, 256> defaults = defaultRecord("Checkerboard");
    EXPECT_EQ(currentRecord(dialog), std::vector<unsigned char>(defaults.begin(), defaults.end()));
}

TEST_F(MainWindowTest, KnownKindIsSelectedAndItsRecordShownOnItsWidgets) {
    const ParamTable table = CamouflageTexture3D::parameters();
    auto record = defaultRecord("Camouflage");
    setRecordValue(record, table, "threshold", 0.37);
    setRecordValue(record, table, "frequency", 1.25);
    MainWindow dialog;
    dialog.loadFromHost(record.data(), bytesOf(sampleTransform()).data());
    EXPECT_EQ(dialog.currentKindName(), "Camouflage");
    EXPECT_TRUE(pageShown(dialog, "Camouflage"));
    EXPECT_EQ(itemNamed(dialog, "Camouflage")->checkState(), Qt::Checked);
    EXPECT_EQ(itemNamed(dialog, "Checkerboard")->checkState(), Qt::Unchecked);
    EXPECT_EQ(widget<QSlider>(dialog, "Camouflage", "threshold")->value(), 37);
    EXPECT_EQ(widget<QDoubleSpinBox>(dialog, "Camouflage", "frequency")->value(), 1.25);
    expectCommonControls(dialog, "Camouflage", 25, -50, 90, 50, 2.5);
}

TEST_F(MainWindowTest, OkReturnsTheCurrentRecordAndTheCurrentPagesTransform) {
    const ParamTable table = PsychedelicTexture3D::parameters();
    MainWindow dialog;
    dialog.loadFromHost(defaultRecord("Psychedelic").data(), bytesOf(sampleTransform()).data());
    dialog.show();
    widget<QSlider>(dialog, "Psychedelic", "maxColor")->setValue(70);
    dialog.wrapperFor("Psychedelic")->common().rotate[0]->setValue(-45);
    QTest::mouseClick(dialog.buttonBox()->button(QDialogButtonBox::Ok), Qt::LeftButton);
    EXPECT_FALSE(dialog.isVisible());

    std::vector<unsigned char> result(256);
    dialog.takeResultRecord(reinterpret_cast<char*>(result.data()));
    EXPECT_EQ(result[0], 48);
    EXPECT_STREQ(reinterpret_cast<const char*>(&result[1]), "Psychedelic");
    EXPECT_EQ(recordValue(result, table, "maxColor"), 70.0f * 0.01f);
    EXPECT_EQ(result[48], ' ');  // past the record, the buffer keeps its spaces

    std::array<char, 44> transform;
    dialog.takeTransform(transform.data());
    TransformBlock expected = sampleTransform();
    expected.rotate[0] = static_cast<float>(-45 * (1.0 / 360.0));
    EXPECT_EQ(transform, bytesOf(expected));
}

TEST_F(MainWindowTest, CancelReturnsNoRecordButStillTheTransform) {
    MainWindow dialog;
    dialog.loadFromHost(defaultRecord("Wood").data(), bytesOf(sampleTransform()).data());
    dialog.show();
    dialog.wrapperFor("Wood")->common().translate[2]->setValue(10);
    QTest::mouseClick(dialog.buttonBox()->button(QDialogButtonBox::Cancel), Qt::LeftButton);
    EXPECT_FALSE(dialog.isVisible());

    std::array<char, 256> result;
    dialog.takeResultRecord(result.data());
    std::array<char, 256> spaces;
    spaces.fill(' ');
    spaces[0] = 0;
    EXPECT_EQ(result, spaces);
    std::array<char, 44> transform;
    dialog.takeTransform(transform.data());
    TransformBlock expected = sampleTransform();
    expected.translate[2] = 0.1f;
    EXPECT_EQ(transform, bytesOf(expected));
}

TEST_F(MainWindowTest, NamesWithoutAPageLeaveCheckerboardAndTheDefaultTransform) {
    for (const char* name : {"Constant", "Cell Noise", "Penrose Rhombus", "Checkerboard2", "checkerboard"}) {
        SCOPED_TRACE(name);
        std::array<char, 256> record{};
        record[0] = 48;
        std::strncpy(&record[1], name, 31);
        MainWindow dialog;
        dialog.loadFromHost(record.data(), bytesOf(sampleTransform()).data());
        EXPECT_EQ(dialog.currentKindName(), "Checkerboard");
        EXPECT_TRUE(pageShown(dialog, "Checkerboard"));
        expectCommonControls(dialog, "Checkerboard", 0, 0, 0, 100, 1.0);
        dialog.accept();
        std::array<char, 44> transform;
        dialog.takeTransform(transform.data());
        EXPECT_EQ(transform, bytesOf(TransformBlock{}));
        std::array<char, 256> result;
        dialog.takeResultRecord(result.data());
        EXPECT_STREQ(&result[1], "Checkerboard");
    }
}

TEST_F(MainWindowTest, SwitchingPagesCarriesTheTransformAndKeepsEachKindsParameters) {
    const ParamTable checker = CheckerboardTexture3D::parameters();
    MainWindow dialog;
    dialog.loadFromHost(defaultRecord("Checkerboard").data(), bytesOf(sampleTransform()).data());
    widget<QSlider>(dialog, "Checkerboard", "variability")->setValue(12);
    dialog.wrapperFor("Checkerboard")->common().translate[2]->setValue(-30);

    hostCalls().clear();
    dialog.generatorList()->setCurrentItem(itemNamed(dialog, "Wood"));
    EXPECT_EQ(dialog.currentKindName(), "Wood");
    EXPECT_TRUE(pageShown(dialog, "Wood"));
    ASSERT_FALSE(hostCalls().empty());
    EXPECT_STREQ(reinterpret_cast<const char*>(&hostCalls().back().record[1]), "Wood");
    TransformBlock carried = sampleTransform();
    carried.translate[2] = -0.3f;
    EXPECT_EQ(bytesOf(hostCalls().back().transform), bytesOf(carried));
    expectCommonControls(dialog, "Wood", 25, -50, 90, 50, 2.5);

    dialog.generatorList()->setCurrentItem(itemNamed(dialog, "Checkerboard"));
    EXPECT_EQ(widget<QSlider>(dialog, "Checkerboard", "variability")->value(), 12);
    EXPECT_EQ(recordValue(currentRecord(dialog), checker, "variability"), 12.0f * 0.01f);
}

TEST_F(MainWindowTest, TheListIsAlphabeticalWhateverTheInsertionOrder) {
    // Every offered name, in code-unit order; kinds not yet built are left out.
    const char* alphabetical[] = {"Brick", "Camouflage", "Checkerboard", "Cheetah", "Corrugated", "Dents", "Erosion",
                                  "FBM", "Gradient", "Granite", "Grid", "HexTile", "Houndstooth", "Nested Shapes",
                                  "Perlin Noise", "Plaid", "Psychedelic", "Scales", "Simple Marble", "Simplex",
                                  "Snakeskin", "Speckled Stone", "Spheres", "Spiral", "Stripes", "Turbulence",
                                  "Voronoi", "Voronoi Tiles", "Weave", "Wood", "Zigzag"};
    QStringList expected;
    for (const char* name : alphabetical)
        if (implemented(name)) expected << QLatin1String(name);
    MainWindow dialog;
    QStringList shown;
    for (int i = 0; i < dialog.generatorList()->count(); ++i) shown << dialog.generatorList()->item(i)->text();
    EXPECT_EQ(shown, expected);
    for (const char* pageless : {"Constant", "Cell Noise", "Penrose Rhombus"})
        EXPECT_EQ(dialog.pageFor(pageless), nullptr) << pageless;
}

TEST_F(MainWindowTest, ClickingAnItemMovesTheCheckMark) {
    MainWindow dialog;
    dialog.show();
    QListWidget* list = dialog.generatorList();
    QListWidgetItem* wood = itemNamed(dialog, "Wood");
    list->scrollToItem(wood);
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(wood).center());
    EXPECT_EQ(wood->checkState(), Qt::Checked);
    EXPECT_EQ(itemNamed(dialog, "Checkerboard")->checkState(), Qt::Unchecked);
    EXPECT_EQ(dialog.currentKindName(), "Wood");
}

}  // namespace
}  // namespace grainsmith::test
