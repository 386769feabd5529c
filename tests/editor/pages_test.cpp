// The generated pages: the Brick form in full, every page's widgets against its table, the
// round trip of records through the widgets, and records of random bytes.
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QFrame>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>
#include <cmath>
#include <random>

#include "editor/page_builder.h"
#include "editor/record_loading.h"
#include "editor_test_util.h"

namespace grainsmith::test {
namespace {

using PagesTest = EditorTest;

QString groupTitleOf(const QWidget* w) {
    for (const QObject* o = w->parent(); o != nullptr; o = o->parent())
        if (auto* box = qobject_cast<const QGroupBox*>(o)) return box->title();
    return {};
}

// The label shown for a widget: a toggle's own text, else the label whose buddy it is.
QString labelOf(const QWidget* page, const QWidget* w) {
    if (auto* button = qobject_cast<const QPushButton*>(w)) return button->text();
    for (const QLabel* label : page->findChildren<QLabel*>())
        if (label->buddy() == w) return label->text();
    return {};
}

TEST_F(PagesTest, BrickPageIsTheBrickForm) {
    if (!implemented("Brick")) GTEST_SKIP() << "Brick is not built yet";
    MainWindow dialog;
    const QWidget* page = dialog.pageFor("Brick");
    ASSERT_NE(page, nullptr);
    EXPECT_EQ(page->objectName(), QStringLiteral("BrickWidget"));
    EXPECT_EQ(page->findChild<QLabel*>(QStringLiteral("heading"))->text(), QStringLiteral("Brick"));

    struct Row {
        const char* group;
        const char* name;
        const char* kind;  // "combo", "spin", "toggle", "slider"
        const char* label;
        double step;
    };
    const Row rows[] = {
        {"Style", "pattern", "combo", "Pattern", 0},
        {"Dimensions", "width", "spin", "Width", 0.01},
        {"Dimensions", "height", "spin", "Height", 0.001},
        {"Dimensions", "depth", "spin", "Depth", 0.001},
        {"Dimensions", "mortarThickness", "spin", "Mortar Thickness", 0.001},
        {"Rounded Corners", "roundedCornersEnable", "toggle", "Enable", 0},
        {"Rounded Corners", "roundedCornersRadius", "slider", "Radius", 0},
        {"Colors", "brickColor", "slider", "Brick", 0},
        {"Colors", "mortarColor", "slider", "Mortar", 0},
        {"Colors", "randomizeColors", "toggle", "Randomize", 0},
        {"Colors", "minColor", "slider", "Minimum", 0},
        {"Colors", "maxColor", "slider", "Maximum", 0},
        {"Row Offset Variability", "rowOffsetVariabilityEnable", "toggle", "Enable", 0},
        {"Row Offset Variability", "rowOffsetVariabilityAmplitude", "slider", "Amplitude", 0},
    };
    // Layout order: the widgets appear in the page in the order of the form.
    QStringList order;
    for (const QWidget* w : page->findChildren<QWidget*>())
        for (const Row& r : rows)
            if (w->objectName() == QLatin1String(r.name)) order << w->objectName();
    QStringList expectedOrder;
    for (const Row& r : rows) expectedOrder << QLatin1String(r.name);
    EXPECT_EQ(order, expectedOrder);

    for (const Row& r : rows) {
        SCOPED_TRACE(r.name);
        const auto* w = page->findChild<QWidget*>(QLatin1String(r.name));
        ASSERT_NE(w, nullptr);
        EXPECT_EQ(groupTitleOf(w), QLatin1String(r.group));
        EXPECT_EQ(labelOf(page, w), QLatin1String(r.label));
        const std::string kind = r.kind;
        if (kind == "combo") {
            auto* combo = qobject_cast<const QComboBox*>(w);
            ASSERT_NE(combo, nullptr);
            ASSERT_EQ(combo->count(), 2);
            EXPECT_EQ(combo->itemText(0), QStringLiteral("Herringbone"));
            EXPECT_EQ(combo->itemText(1), QStringLiteral("Running Bond"));
        } else if (kind == "spin") {
            auto* spin = qobject_cast<const QDoubleSpinBox*>(w);
            ASSERT_NE(spin, nullptr);
            EXPECT_EQ(spin->decimals(), 3);
            EXPECT_EQ(spin->minimum(), 0.001);
            EXPECT_EQ(spin->maximum(), 99.99);
            EXPECT_EQ(spin->singleStep(), r.step);
        } else if (kind == "toggle") {
            auto* button = qobject_cast<const QPushButton*>(w);
            ASSERT_NE(button, nullptr);
            EXPECT_TRUE(button->isCheckable());
        } else {
            auto* slider = qobject_cast<const QSlider*>(w);
            ASSERT_NE(slider, nullptr);
            EXPECT_EQ(slider->minimum(), 0);
            EXPECT_EQ(slider->maximum(), 100);
            EXPECT_EQ(slider->orientation(), Qt::Horizontal);
            EXPECT_EQ(slider->cursor().shape(), Qt::SizeHorCursor);
            auto* frame = qobject_cast<const QFrame*>(slider->parentWidget());
            ASSERT_NE(frame, nullptr);
            EXPECT_EQ(frame->property("sliderFrame"), QVariant(true));
        }
    }

    // The dimension spin boxes write the brick's dimensions; the colour pair keeps its order.
    const ParamTable table = findKind("Brick")->ops->parameters();
    std::array<char, 256> record = defaultRecord("Brick");
    dialog.loadFromHost(record.data(), std::array<char, 44>{}.data());
    for (const Param& p : table) {
        if (widgetObjectName(p) != QLatin1String("width")) continue;
        page->findChild<QDoubleSpinBox*>(QStringLiteral("width"))->setValue(0.5);
        EXPECT_EQ(readParam(p, currentRecord(dialog).data()), 0.5f);
    }
    page->findChild<QSlider*>(QStringLiteral("maxColor"))->setValue(30);
    hostCalls().clear();
    page->findChild<QSlider*>(QStringLiteral("minColor"))->setValue(45);
    EXPECT_EQ(page->findChild<QSlider*>(QStringLiteral("maxColor"))->value(), 45);
    EXPECT_EQ(hostCalls().size(), 2u);
}

// Every widget of every page exists for its table row and writes that row's field.
TEST_F(PagesTest, EveryWidgetWritesItsOwnParameter) {
    MainWindow dialog;
    for (const Kind& kind : catalogue()) {
        if (kind.editorOrder == 0 || !kind.implemented()) continue;
        SCOPED_TRACE(kind.name);
        dialog.loadFromHost(defaultRecord(kind.name).data(), std::array<char, 44>{}.data());
        const ParamTable table = kind.ops->parameters();
        TableWrapper* wrapper = dialog.wrapperFor(kind.name);
        for (const Param& p : table) {
            QWidget* w = wrapper->widgetFor(p.name);
            if (p.widget == Widget::Hidden) {
                EXPECT_EQ(w, nullptr);
                continue;
            }
            SCOPED_TRACE(p.name);
            ASSERT_NE(w, nullptr);
            EXPECT_EQ(w->objectName(), widgetObjectName(p));
            const Param& target = p.storesInto ? paramNamed(table, p.storesInto) : p;
            const double before = readParam(target, currentRecord(dialog).data());
            double expected = before;
            if (auto* slider = qobject_cast<QSlider*>(w)) {
                const int v = slider->value() == slider->minimum() ? slider->minimum() + 1 : slider->minimum();
                slider->setValue(v);
                expected = TableWrapper::sliderToParameter(p, v);
            } else if (auto* button = qobject_cast<QPushButton*>(w)) {
                button->toggle();
                expected = button->isChecked() ? 1.0 : 0.0;
            } else if (auto* combo = qobject_cast<QComboBox*>(w)) {
                ASSERT_EQ(combo->count(), static_cast<int>(p.choices.size()));
                const int index = combo->currentIndex() == 0 ? combo->count() - 1 : 0;
                combo->setCurrentIndex(index);
                expected = index;
            } else if (auto* dspin = qobject_cast<QDoubleSpinBox*>(w)) {
                EXPECT_EQ(dspin->decimals(), 3);
                const double v = dspin->value() == 1.5 ? 2.25 : 1.5;
                dspin->setValue(v);
                expected = static_cast<float>(dspin->value());
            } else if (auto* spin = qobject_cast<QSpinBox*>(w)) {
                const int v = spin->value() == spin->minimum() ? spin->minimum() + 1 : spin->minimum();
                spin->setValue(v);
                expected = v;
            }
            const double after = readParam(target, currentRecord(dialog).data());
            if (p.inert)
                EXPECT_EQ(after, before) << "an inert widget changed its parameter";
            else
                EXPECT_EQ(after, expected);
        }
    }
}

// The grain of a widget: how far a value may move when the widget shows it and stores it back.
double grainOf(const Param& p) {
    switch (p.widget) {
    case Widget::Slider:
        return p.scale;
    case Widget::DoubleSpin:
        return 0.5 * std::pow(10.0, -p.decimals) + 1e-5;  // plus the float rounding of both values
    default:
        return 0.0;
    }
}

TEST_F(PagesTest, ShowingARecordKeepsEveryParameterWithinTheWidgetGrain) {
    std::mt19937 random(20261123);
    MainWindow dialog;
    for (const Kind& kind : catalogue()) {
        if (kind.editorOrder == 0 || !kind.implemented()) continue;
        SCOPED_TRACE(kind.name);
        const ParamTable table = kind.ops->parameters();
        for (int round = 0; round < 5; ++round) {
            std::array<char, 256> record = defaultRecord(kind.name);
            for (const Param& p : table) {
                // Partner sliders keep their defaults, which are in order.
                if (p.widget == Widget::Hidden || p.partner != nullptr || p.storesInto != nullptr) continue;
                std::uniform_real_distribution<double> u(0.0, 1.0);
                double v = p.minimum + (p.maximum - p.minimum) * u(random);
                if (p.widget == Widget::Slider) v = (p.minimum + (p.maximum - p.minimum) * u(random)) * p.scale;
                if (p.widget == Widget::Toggle) v = u(random) < 0.5;
                if (p.widget == Widget::Combo) v = std::floor(u(random) * p.choices.size());
                if (p.widget == Widget::IntSpin) v = std::floor(v);
                setRecordValue(record, table, p.name, v);
            }
            dialog.loadFromHost(record.data(), std::array<char, 44>{}.data());
            const std::vector<unsigned char> shown = currentRecord(dialog);
            const std::vector<unsigned char> given(record.begin(), record.end());
            for (const Param& p : table) {
                const double before = readParam(p, given.data()), after = readParam(p, shown.data());
                EXPECT_LE(std::fabs(after - before), grainOf(p)) << p.name << " " << before << " -> " << after;
            }
        }
    }
}

TEST_F(PagesTest, RandomRecordBytesOfEveryKindLoadWithoutHarm) {
    std::mt19937 random(7);
    std::uniform_int_distribution<int> byte(0, 255);
    MainWindow dialog;
    setHostUpdateCallback(nullptr);  // keep the test fast: nothing to record
    int loaded = 0;
    for (const Kind& kind : catalogue()) {
        if (kind.editorOrder == 0 || !kind.implemented()) continue;
        for (int round = 0; round < 20; ++round) {
            uint8_t bytes[256];
            for (uint8_t& b : bytes) b = static_cast<uint8_t>(byte(random));
            char transform[44];
            for (char& b : transform) b = static_cast<char>(byte(random));
            loadRecordBytes(dialog, kind, bytes, sizeof bytes, round % 2 ? transform : nullptr);
            ASSERT_EQ(dialog.currentKindName(), kind.name);
            ++loaded;
        }
        dialog.accept();
        char result[256];
        dialog.takeResultRecord(result);
        EXPECT_EQ(static_cast<uint8_t>(result[0]), kind.recordSize) << kind.name;
    }
    EXPECT_GT(loaded, 0);
}

}  // namespace
}  // namespace grainsmith::test
