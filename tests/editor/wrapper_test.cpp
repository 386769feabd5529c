// The wrappers as a user meets them: what a widget writes into the record, how partner
// sliders move, what the host hears, and the common controls' conversions.
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QPushButton>
#include <QSpinBox>

#include "editor_test_util.h"
#include "grainsmith/numeric.h"
#include "grainsmith/textures/camouflage.h"
#include "grainsmith/textures/checkerboard.h"
#include "grainsmith/textures/psychedelic.h"
#include "grainsmith/textures/wood.h"

namespace grainsmith::test {
namespace {

using WrapperTest = EditorTest;

TEST_F(WrapperTest, RaisingAMinimumAboveItsMaximumMovesTheMaximumAndNotifiesTwice) {
    const ParamTable table = PsychedelicTexture3D::parameters();
    MainWindow dialog;
    dialog.loadFromHost(defaultRecord("Psychedelic").data(), std::array<char, 44>{}.data());
    auto* minColor = widget<QSlider>(dialog, "Psychedelic", "minColor");
    auto* maxColor = widget<QSlider>(dialog, "Psychedelic", "maxColor");
    maxColor->setValue(40);
    hostCalls().clear();
    minColor->setValue(60);
    EXPECT_EQ(maxColor->value(), 60);
    ASSERT_EQ(hostCalls().size(), 2u);
    for (const HostCall& call : hostCalls()) {
        EXPECT_EQ(recordValue(call.record, table, "minColor"), 60.0f * 0.01f);
        EXPECT_EQ(recordValue(call.record, table, "maxColor"), 60.0f * 0.01f);
    }
    // And down again: the maximum pushes the minimum.
    hostCalls().clear();
    maxColor->setValue(20);
    EXPECT_EQ(minColor->value(), 20);
    EXPECT_EQ(hostCalls().size(), 2u);
    EXPECT_EQ(recordValue(currentRecord(dialog), table, "minColor"), 20.0f * 0.01f);
    // Within order nothing else moves.
    hostCalls().clear();
    maxColor->setValue(90);
    EXPECT_EQ(minColor->value(), 20);
    EXPECT_EQ(hostCalls().size(), 1u);
}

TEST_F(WrapperTest, InteractiveUpdateChangesTheRecordFlagAndTrackingButTellsNobody) {
    MainWindow dialog;
    dialog.loadFromHost(defaultRecord("Wood").data(), std::array<char, 44>{}.data());
    TableWrapper* wrapper = dialog.wrapperFor("Wood");
    QPushButton* button = wrapper->common().newInteractiveUpdate;
    ASSERT_TRUE(button->isChecked());  // records start with interactive update on
    EXPECT_TRUE(wrapper->common().translate[0]->hasTracking());
    hostCalls().clear();
    button->setChecked(false);
    EXPECT_TRUE(hostCalls().empty());
    EXPECT_EQ(currentRecord(dialog)[35], 0);
    EXPECT_FALSE(wrapper->common().translate[0]->hasTracking());
    EXPECT_FALSE(wrapper->common().overallScale->keyboardTracking());
    EXPECT_FALSE(widget<QSlider>(dialog, "Wood", "darkColor")->hasTracking());
    EXPECT_FALSE(widget<QDoubleSpinBox>(dialog, "Wood", "ringScale")->keyboardTracking());
    button->setChecked(true);
    EXPECT_EQ(currentRecord(dialog)[35], 1);
    EXPECT_TRUE(widget<QSlider>(dialog, "Wood", "darkColor")->hasTracking());
    EXPECT_TRUE(hostCalls().empty());

    std::array<char, 256> result;
    button->setChecked(false);
    dialog.accept();
    dialog.takeResultRecord(result.data());
    EXPECT_EQ(result[35], 0);
}

// A drag: the slider is held down and moved twice, then released.
void drag(QSlider* slider, int first, int second) {
    slider->setSliderDown(true);
    slider->setSliderPosition(first);
    slider->setSliderPosition(second);
    slider->setSliderDown(false);
}

TEST_F(WrapperTest, WithoutInteractiveUpdateADragNotifiesOnceAtRelease) {
    const ParamTable table = CheckerboardTexture3D::parameters();
    auto record = defaultRecord("Checkerboard");
    record[35] = 0;
    MainWindow dialog;
    dialog.loadFromHost(record.data(), std::array<char, 44>{}.data());
    hostCalls().clear();
    drag(widget<QSlider>(dialog, "Checkerboard", "variability"), 10, 20);
    drag(dialog.wrapperFor("Checkerboard")->common().translate[0], 10, 20);
    ASSERT_EQ(hostCalls().size(), 2u);
    EXPECT_EQ(recordValue(hostCalls()[0].record, table, "variability"), 20.0f * 0.01f);
    EXPECT_EQ(hostCalls()[1].transform.translate[0], static_cast<float>(20 * 0.01));

    // With it, every step of the drag reaches the host.
    dialog.wrapperFor("Checkerboard")->common().newInteractiveUpdate->setChecked(true);
    hostCalls().clear();
    drag(widget<QSlider>(dialog, "Checkerboard", "variability"), 30, 40);
    drag(dialog.wrapperFor("Checkerboard")->common().rotate[2], 30, 40);
    EXPECT_EQ(hostCalls().size(), 4u);
}

TEST_F(WrapperTest, TheCallbackGetsItsFixedArgumentsAndCopiesOfRecordAndTransform) {
    MainWindow dialog;
    TransformBlock t;
    t.flags = 4;
    t.overallScale = 3.0f;
    std::array<char, 44> block;
    t.writeTo(block.data());
    dialog.loadFromHost(defaultRecord("Camouflage").data(), block.data());
    hostCalls().clear();
    widget<QSlider>(dialog, "Camouflage", "threshold")->setValue(10);  // moves no other slider
    ASSERT_EQ(hostCalls().size(), 1u);
    const HostCall& call = hostCalls()[0];
    EXPECT_EQ(call.f, 4.0f);
    EXPECT_EQ(call.i, 8);
    EXPECT_EQ(call.pointer, nullptr);
    EXPECT_EQ(call.zero, 0);
    EXPECT_EQ(call.record, currentRecord(dialog));
    EXPECT_EQ(recordValue(call.record, CamouflageTexture3D::parameters(), "threshold"), 10.0f * 0.01f);
    EXPECT_EQ(call.transform.flags, 4);
    EXPECT_EQ(call.transform.overallScale, 3.0f);
    // Without a callback an edit still lands in the record.
    setHostUpdateCallback(nullptr);
    widget<QSlider>(dialog, "Camouflage", "layer2Color")->setValue(20);
    EXPECT_EQ(recordValue(currentRecord(dialog), CamouflageTexture3D::parameters(), "layer2Color"), 20.0f * 0.01f);
}

TEST_F(WrapperTest, CommonControlsConvertInTheirOwnNumberFormats) {
    MainWindow dialog;
    const CommonControls& c = dialog.wrapperFor("Checkerboard")->common();
    c.rotate[0]->setValue(90);
    c.translate[1]->setValue(-37);
    c.scale[2]->setValue(1);
    c.overallScale->setValue(0.1);
    const TransformBlock& t = dialog.wrapperFor("Checkerboard")->transform();
    EXPECT_EQ(t.rotate[0], 0.25f);
    EXPECT_EQ(t.translate[1], static_cast<float>(-37 * 0.01));
    EXPECT_EQ(t.scale[2], 0.01f);
    EXPECT_EQ(t.overallScale, 0.1f);
    c.overallScale->setValue(1000.0);
    EXPECT_EQ(c.overallScale->value(), 512.0);
    c.overallScale->setValue(0.0);
    EXPECT_EQ(c.overallScale->value(), 0.0001);

    // Loading truncates to the widget's grain and stores the grain back.
    TransformBlock in;
    in.rotate[0] = 0.2502f;  // 90.07 degrees
    in.translate[0] = 0.257f;
    std::array<char, 44> block;
    in.writeTo(block.data());
    dialog.wrapperFor("Checkerboard")->setTransform(block.data());
    EXPECT_EQ(c.rotate[0]->value(), 90);
    EXPECT_EQ(c.translate[0]->value(), 25);
    EXPECT_EQ(dialog.wrapperFor("Checkerboard")->transform().translate[0], 0.25f);
}

// Showing a stored value truncates toward zero, so a position comes back as itself or as its
// neighbour toward zero, never further: a record shown and stored again moves by at most one
// step of its widget.
bool backWithinOneStep(int back, int v) { return back == v || back == (v > 0 ? v - 1 : v + 1); }

TEST_F(WrapperTest, EverySliderPositionComesBackWithinOneStep) {
    for (int v = -180; v <= 180; ++v) {
        const float turns = static_cast<float>(v * 0.002777777777777778);
        EXPECT_PRED2(backWithinOneStep, toInt32(turns * 360.0f), v);
        const float offset = static_cast<float>(v * 0.01);
        EXPECT_PRED2(backWithinOneStep, toInt32(offset * 100.0f), v);
    }
    for (const Kind& kind : catalogue()) {
        if (kind.editorOrder == 0 || !kind.implemented()) continue;
        for (const Param& p : kind.ops->parameters()) {
            if (p.widget != Widget::Slider) continue;
            for (int v = toInt32(p.minimum); v <= toInt32(p.maximum); ++v) {
                const double stored = static_cast<float>(TableWrapper::sliderToParameter(p, v));
                ASSERT_PRED2(backWithinOneStep, TableWrapper::parameterToSlider(p, stored), v)
                    << kind.name << " " << p.name;
            }
        }
    }
    // The familiar case: 0.29 is shown as 29, not 28.
    Param colour{.name = "c", .type = FieldType::Float32, .offset = 36, .defaultValue = 0, .widget = Widget::Slider,
                 .scale = 0.01};
    EXPECT_EQ(TableWrapper::parameterToSlider(colour, 0.29f), 29);
}

TEST_F(WrapperTest, WoodConvertsInDoubleAndStoresFrequencyUnscaled) {
    const ParamTable table = WoodTexture3D::parameters();
    MainWindow dialog;
    dialog.loadFromHost(defaultRecord("Wood").data(), std::array<char, 44>{}.data());
    widget<QSlider>(dialog, "Wood", "darkColor")->setValue(7);
    widget<QSpinBox>(dialog, "Wood", "frequency")->setValue(3);
    EXPECT_EQ(recordValue(currentRecord(dialog), table, "darkColor"), static_cast<float>(7 * 0.01));
    EXPECT_EQ(recordValue(currentRecord(dialog), table, "frequency"), 3.0f);
}

TEST_F(WrapperTest, CamouflageSlidersMoveTheirPartners) {
    const ParamTable table = CamouflageTexture3D::parameters();
    MainWindow dialog;
    dialog.loadFromHost(defaultRecord("Camouflage").data(), std::array<char, 44>{}.data());
    for (const Param& p : table) {
        if (p.partner == nullptr) continue;
        SCOPED_TRACE(p.name);
        auto* own = widget<QSlider>(dialog, "Camouflage", p.name);
        auto* other = widget<QSlider>(dialog, "Camouflage", p.partner);
        ASSERT_TRUE(own && other);
        const bool raise = p.partnerRule == PartnerRule::Raise;
        other->setValue(raise ? 0 : 100);
        const int v = own->value() == 50 ? 60 : 50;  // a value that moves the slider
        own->setValue(v);
        EXPECT_EQ(other->value(), v);
        EXPECT_EQ(recordValue(currentRecord(dialog), table, p.partner), static_cast<float>(v) * 0.01f);
    }
}

TEST_F(WrapperTest, WeavesVerticalMaximumSliderWritesTheHorizontalMaximum) {
    if (!implemented("Weave")) GTEST_SKIP() << "Weave is not built yet";
    const ParamTable table = findKind("Weave")->ops->parameters();
    MainWindow dialog;
    auto record = defaultRecord("Weave");
    setRecordValue(record, table, "horizontalMaxColor", 0.6f);
    setRecordValue(record, table, "verticalMaxColor", 0.8f);
    dialog.loadFromHost(record.data(), std::array<char, 44>{}.data());
    // Shown from its own field, without copying it into the horizontal one.
    EXPECT_EQ(widget<QSlider>(dialog, "Weave", "verticalMaxColor")->value(), 80);
    EXPECT_EQ(recordValue(currentRecord(dialog), table, "horizontalMaxColor"), 60.0f * 0.01f);  // its own grain
    widget<QSlider>(dialog, "Weave", "verticalMaxColor")->setValue(30);
    EXPECT_EQ(recordValue(currentRecord(dialog), table, "horizontalMaxColor"), 30.0f * 0.01f);
    EXPECT_EQ(recordValue(currentRecord(dialog), table, "verticalMaxColor"), 0.8f);
    // Weave's colour pairs keep no order.
    widget<QSlider>(dialog, "Weave", "horizontalMaxColor")->setValue(20);
    widget<QSlider>(dialog, "Weave", "horizontalMinColor")->setValue(90);
    EXPECT_EQ(widget<QSlider>(dialog, "Weave", "horizontalMaxColor")->value(), 20);
}

TEST_F(WrapperTest, NestedShapesWidgetsChangeNothing) {
    if (!implemented("Nested Shapes")) GTEST_SKIP() << "Nested Shapes is not built yet";
    MainWindow dialog;
    dialog.loadFromHost(defaultRecord("Nested Shapes").data(), std::array<char, 44>{}.data());
    const std::vector<unsigned char> before = currentRecord(dialog);
    hostCalls().clear();
    widget<QSlider>(dialog, "Nested Shapes", "thickness")->setValue(3);
    widget<QComboBox>(dialog, "Nested Shapes", "shapeType")->setCurrentIndex(2);
    EXPECT_EQ(currentRecord(dialog), before);
    EXPECT_TRUE(hostCalls().empty());
}

TEST_F(WrapperTest, ScalesDimensionsUseTheirFinerSteps) {
    if (!implemented("Scales")) GTEST_SKIP() << "Scales is not built yet";
    const ParamTable table = findKind("Scales")->ops->parameters();
    MainWindow dialog;
    dialog.loadFromHost(defaultRecord("Scales").data(), std::array<char, 44>{}.data());
    widget<QSlider>(dialog, "Scales", "baseDimension")->setValue(37);
    widget<QSlider>(dialog, "Scales", "edgeDimension")->setValue(37);
    EXPECT_EQ(recordValue(currentRecord(dialog), table, "baseDimension"), 37.0f * 0.005f);
    EXPECT_EQ(recordValue(currentRecord(dialog), table, "edgeDimension"), 37.0f * 0.001f);
    // Each colour pair keeps its order.
    widget<QSlider>(dialog, "Scales", "edgeMaxColor")->setValue(10);
    widget<QSlider>(dialog, "Scales", "edgeMinColor")->setValue(55);
    EXPECT_EQ(widget<QSlider>(dialog, "Scales", "edgeMaxColor")->value(), 55);
}

TEST_F(WrapperTest, PlaidPeriodsAreWholeNumbers) {
    if (!implemented("Plaid")) GTEST_SKIP() << "Plaid is not built yet";
    const ParamTable table = findKind("Plaid")->ops->parameters();
    MainWindow dialog;
    dialog.loadFromHost(defaultRecord("Plaid").data(), std::array<char, 44>{}.data());
    widget<QSpinBox>(dialog, "Plaid", "horizontalPeriod")->setValue(7);
    EXPECT_EQ(recordValue(currentRecord(dialog), table, "horizontalPeriod"), 7.0);
}

}  // namespace
}  // namespace grainsmith::test
