// grainsmith-demo-host: a small host application for the texture plug-in. It loads
// libgrainsmith.so with dlopen, shows a live preview of the current texture, and opens the
// plug-in's editor over its main window.
//
// Usage: grainsmith-demo-host [--plugin PATH] [--record FILE] [--screenshot FILE.png]
#include <QApplication>
#include <QComboBox>
#include <QCommandLineParser>
#include <QDialogButtonBox>
#include <QDir>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QSlider>
#include <QTimer>

#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "demo_window.h"

namespace {

// --screenshot: opens the editor, picks a kind and turns the placement as a user would, waits
// for the live preview to follow, writes a picture of the whole screen, presses OK and checks
// that the chosen record came back. Exits 0 when all of that happened.
void scriptEditorSession(demo::DemoWindow& window, const QString& screenshot) {
    auto* poll = new QTimer(&window);
    poll->setInterval(100);
    int phase = 0;
    QObject::connect(poll, &QTimer::timeout, &window, [&window, screenshot, poll, phase]() mutable {
        QWidget* dialog = QApplication::activeModalWidget();
        if (!dialog) return;
        if (phase == 0) {
            auto* list = dialog->findChild<QListWidget*>();
            const auto items = list ? list->findItems(QStringLiteral("Wood"), Qt::MatchExactly) : QList<QListWidgetItem*>{};
            if (items.isEmpty()) return;
            if (auto* colours = window.findChild<QComboBox*>()) colours->setCurrentText(QStringLiteral("Wood"));
            list->setCurrentItem(items.first());
            emit list->itemClicked(items.first());
            for (QSlider* angle : dialog->findChildren<QSlider*>(QStringLiteral("rotZ")))
                if (angle->isVisible()) angle->setValue(20);
            phase = 1;
        } else if (phase == 1 && window.callbacks() > 0 && window.view().complete()) {
            window.view().repaint();  // the last rows are painted before the picture is taken
            const QPixmap shot = QGuiApplication::primaryScreen()->grabWindow(0);
            if (!shot.save(screenshot)) std::fprintf(stderr, "cannot write %s\n", qPrintable(screenshot));
            if (auto* box = dialog->findChild<QDialogButtonBox*>()) box->button(QDialogButtonBox::Ok)->click();
            phase = 2;
            poll->stop();
        }
    });
    QTimer::singleShot(500, &window, [&window, poll] {
        poll->start();
        window.editTexture();
        const bool chosen = std::strcmp(window.record().data() + 1, "Wood") == 0;
        std::fprintf(stderr, "editor closed: record \"%s\", %d host updates\n", window.record().data() + 1,
                     window.callbacks());
        QCoreApplication::exit(chosen && window.callbacks() > 0 ? 0 : 1);
    });
    QTimer::singleShot(60000, [] {
        std::fprintf(stderr, "the scripted editor session did not finish within 60 s\n");
        std::_Exit(3);
    });
}

}  // namespace

int main(int argc, char** argv) {
    // Qt names the X11 window class after the application: the plug-in's editor finds the host's
    // main window by the class "Marlix".
    QCoreApplication::setApplicationName(QStringLiteral("Marlix"));
    QApplication app(argc, argv);
    QGuiApplication::setApplicationDisplayName(QStringLiteral("Grainsmith Demo Host"));

    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("A host application for the Grainsmith texture plug-in: live preview, editor, record files."));
    parser.addHelpOption();
    const QCommandLineOption pluginOption(QStringLiteral("plugin"), QStringLiteral("The plug-in to load (default: "
                                                                                    "libgrainsmith.so beside this program)."),
                                          QStringLiteral("PATH"));
    const QCommandLineOption recordOption(QStringLiteral("record"), QStringLiteral("A record file to show at start."),
                                          QStringLiteral("FILE"));
    const QCommandLineOption shotOption(QStringLiteral("screenshot"),
                                        QStringLiteral("Open the editor, make an edit, save a picture of the screen to "
                                                       "FILE, press OK and exit (0 when all went as expected)."),
                                        QStringLiteral("FILE"));
    parser.addOptions({pluginOption, recordOption, shotOption});
    parser.process(app);

    const QString pluginPath = parser.isSet(pluginOption)
                                   ? parser.value(pluginOption)
                                   : QDir(QCoreApplication::applicationDirPath()).filePath(QStringLiteral("libgrainsmith.so"));
    demo::PluginLibrary plugin;
    QString error;
    if (!plugin.open(pluginPath, error)) {
        std::fprintf(stderr, "grainsmith-demo-host: %s\n", qPrintable(error));
        if (!parser.isSet(shotOption)) QMessageBox::critical(nullptr, QStringLiteral("Grainsmith Demo Host"), error);
        return 1;
    }

    demo::DemoWindow window(plugin);
    if (parser.isSet(recordOption) && !window.openRecord(parser.value(recordOption), error)) {
        std::fprintf(stderr, "grainsmith-demo-host: %s\n", qPrintable(error));
        return 1;
    }
    window.show();
    if (parser.isSet(shotOption)) scriptEditorSession(window, parser.value(shotOption));
    return app.exec();
}
