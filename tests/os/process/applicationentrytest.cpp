#include "os/process/applicationentry.h"

#include "tests/support/testprogram.h"

#include <QRegularExpression>
#include <QTest>

using namespace osUtils::Process;

Q_DECLARE_METATYPE(Windowing::WindowIdentity)

/// Which desktop entry belongs to a window.
class ApplicationEntryTest : public QObject {
    Q_OBJECT

private slots:
    void init() { QTest::failOnWarning(QRegularExpression(".?")); }
    void aWindowBelongsToAnEntry_data();
    void aWindowBelongsToAnEntry();

private:
    const std::vector<ApplicationEntry> entries{
        {"org.example.Editor", "Editor", ""},
        {"painter", "Painter", "Painter-2"},
        {"browser", "Browser", "Browser-esr"},
        {"browser-mail", "Mail", "crx_mail"},
        {"Shouting", "Shouting", ""},
        {"kde4-viewer", "Viewer", ""},
        {"other", "Named like another", "painter"},
        {"another", "Later than the one before", "painter"},
    };
};

void ApplicationEntryTest::aWindowBelongsToAnEntry_data()
{
    QTest::addColumn<Windowing::WindowIdentity>("window");
    QTest::addColumn<QString>("id"); // empty for none

    const auto row = [](const char* tag, const Windowing::WindowIdentity& window, const char* id) {
        QTest::newRow(tag) << window << QString(id);
    };
    row("named for KDE", {"org.example.Editor", "", "", ""}, "org.example.Editor");
    row("named for KDE by a path", {"/usr/share/applications/painter.desktop", "", "", ""},
        "painter");
    row("named for KDE by a file", {"painter.desktop", "", "", ""}, "painter");
    row("named for GNOME", {"", "org.example.Editor", "", ""}, "org.example.Editor");
    row("named for both", {"painter", "browser", "", ""}, "painter");
    row("named and classed", {"painter", "", "crx_mail", "Browser-esr"}, "painter");
    row("named, but not installed", {"gone", "", "", "Painter-2"}, "painter");
    row("named in another case", {"Painter", "", "", ""}, "");
    row("named by nothing but a suffix", {".desktop", "", "", ""}, "");
    row("named by a folder", {"/usr/share/applications/", "", "", ""}, "");
    row("class known to an entry", {"", "", "unknown", "Browser-esr"}, "browser");
    row("instance known to an entry", {"", "", "Painter-2", "unknown"}, "painter");
    row("instance before class", {"", "", "crx_mail", "Browser-esr"}, "browser-mail");
    row("known class before id", {"", "", "painter", "browser"}, "other");
    row("known class in another case", {"", "", "BROWSER-ESR", ""}, "");
    row("class is an id", {"", "", "unknown", "browser"}, "browser");
    row("instance is an id", {"", "", "browser", "unknown"}, "browser");
    row("class is an id with capitals", {"", "", "unknown", "BROWSER"}, "browser");
    row("id with capitals", {"", "", "shouting", "unknown"}, "Shouting");
    row("exact id before any case", {"", "", "BROWSER", "kde4-viewer"}, "kde4-viewer");
    row("part of an id", {"", "", "brows", "Editor"}, "");
    row("nothing told", {}, "");
}

void ApplicationEntryTest::aWindowBelongsToAnEntry()
{
    // given
    QFETCH(Windowing::WindowIdentity, window);

    // when
    const ApplicationEntry* entry = entryOf(window, entries);

    // then
    QTEST(entry ? QString::fromStdString(entry->id) : QString(""), "id");
}

REGISTER_TEST(ApplicationEntryTest, TestSupport::NoApplication)
#include "applicationentrytest.moc"
