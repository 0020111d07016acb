#include "os/login/loginitems.h"
#include "tests/os/login/session.h"

#include <QFileInfo>
#include <QProcess>
#include <QRegularExpression>
#include <QTest>

#include <optional>

using namespace TestSupport;

namespace {

/// How a desktop starts programs.
enum class Runner {
    /// dex, on the folder: for desktops without a session manager.
    Dex,
    /// The starter that comes with Openbox, on the folder.
    Openbox,
    /// GLib's launcher, as used by GNOME and others, on each entry.
    GLib,
};

QString openboxRunner()
{
    for (const char* path : {"/usr/lib/x86_64-linux-gnu/openbox-xdg-autostart",
                             "/usr/lib/aarch64-linux-gnu/openbox-xdg-autostart",
                             "/usr/libexec/openbox-xdg-autostart"}) {
        if (QFileInfo::exists(path))
            return path;
    }
    return QStringLiteral("package openbox is missing");
}

/// Runs a program to its end.
/// @return  whether it could be started
bool runs(const QString& program, const QStringList& arguments)
{
    QProcess process;
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    process.start(program, arguments);
    return process.waitForFinished();
}

bool startSession(Runner runner, const Path& autostart)
{
    switch (runner) {
    case Runner::Dex:
        return runs(QStringLiteral("dex"), {QStringLiteral("--autostart")});
    case Runner::Openbox:
        return runs(openboxRunner(), {});
    case Runner::GLib:
    default:
        for (const std::string& name : namesIn(autostart)) {
            const QString file = QString::fromStdString(autostart / name);
            if (!runs(QStringLiteral("gio"), {QStringLiteral("launch"), file}))
                return false;
        }
        return true;
    }
}

}

Q_DECLARE_METATYPE(Runner)

/// Login items in the hands of programs that others have written: runners and editors of entries.
class LoginItemRunnersTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void aRunnerStartsAnItem_data();
    void aRunnerStartsAnItem();
    void aRunnerStartsHiddenItemsToo();
    void aRunnerStartsARemovedItemNoMore();
    void anEntryInstalledByAnotherProgramIsListed();
    void anItemThatAnotherProgramEditsKeepsItsPlace();

private:
    /// Makes a program that leaves its own path in the file.
    std::string addSignallingProgram(const std::string& name, const Path& file) const;

    std::optional<Session> session;
};

void LoginItemRunnersTest::init()
{
    QTest::failOnWarning(QRegularExpression(".?"));
    session.emplace();
}

void LoginItemRunnersTest::cleanup()
{
    session.reset();
}

std::string LoginItemRunnersTest::addSignallingProgram(const std::string& name,
                                                       const Path& file) const
{
    const std::string begun = file.native() + ".new";
    return session->addProgram(
        name, "printf %s \"$0\" > '" + begun + "' && mv '" + begun + "' '" + file.native() + "'\n");
}

void LoginItemRunnersTest::aRunnerStartsAnItem_data()
{
    QTest::addColumn<Runner>("runner");
    QTest::addColumn<std::string>("name");

    const auto rows = [](const char* what, const std::string& name,
                         std::initializer_list<Runner> runners) {
        for (const Runner runner : runners) {
            const char* const names[] = {"dex", "Openbox", "GLib"};
            QTest::addRow("%s, %s", names[static_cast<int>(runner)], what) << runner << name;
        }
    };
    const auto all = {Runner::Dex, Runner::Openbox, Runner::GLib};
    rows("plain", "painter", all);
    rows("space", "my painter", all);
    rows("apostrophe", "ann's painter", all);
    rows("hash", "#painter", all);
    rows("operators", "a;b&c|d<e>f(g)*?~", all);
    rows("equals sign", "a=b", all);
    rows("non-ASCII", "m\xc3\xa4ler-\xe7\x94\xbb", all);
    // dex and Openbox's starter (0.9.0, 3.6.1) take a key file's escapes for part of the value.
    // No percent sign: none of the three resolves a doubled one in a program's path.
    rows("quote", "a\"b", {Runner::GLib});
    rows("dollar", "$HOME", {Runner::GLib});
    rows("backtick", "`id`", {Runner::GLib});
    rows("backslash", "a\\b\\\\c\\n", {Runner::GLib});
    rows("line break", "two\nlines", {Runner::GLib});
    rows("tab", "a\tb", {Runner::GLib});
}

void LoginItemRunnersTest::aRunnerStartsAnItem()
{
    // given
    QFETCH(Runner, runner);
    QFETCH(std::string, name);
    const Path signal = session->root() / "started";
    const std::string program = addSignallingProgram(name, signal);
    QVERIFY(addLoginItemWithPath(program, false));

    // when
    QVERIFY(startSession(runner, session->autostart()));

    // then
    QTRY_VERIFY(std::filesystem::exists(signal));
    QCOMPARE(readFile(signal), program);
}

void LoginItemRunnersTest::aRunnerStartsHiddenItemsToo()
{
    // given
    const Path signal = session->root() / "started";
    QVERIFY(addLoginItemWithPath(addSignallingProgram("painter", signal), true));

    // when
    QVERIFY(startSession(Runner::Dex, session->autostart()));

    // then
    QTRY_VERIFY(std::filesystem::exists(signal));
}

void LoginItemRunnersTest::aRunnerStartsARemovedItemNoMore()
{
    // given
    const Path removedSignal = session->root() / "removed";
    const Path keptSignal = session->root() / "kept";
    const std::string removed = addSignallingProgram("removed-painter", removedSignal);
    QVERIFY(addLoginItemWithPath(removed, false));
    QVERIFY(addLoginItemWithPath(addSignallingProgram("painter", keptSignal), false));

    // when
    QVERIFY(removeLoginItemWithPath(removed));
    QProcess dex;
    dex.start(QStringLiteral("dex"), {"--autostart", "--dry-run", "--verbose"});
    QVERIFY(dex.waitForFinished());

    // then
    const QByteArray plan = dex.readAllStandardOutput();
    QVERIFY(plan.contains("/programs/painter"));
    QVERIFY(!plan.contains("removed-painter"));
}

void LoginItemRunnersTest::anEntryInstalledByAnotherProgramIsListed()
{
    // given
    const Path draft = session->home() / "draft.desktop";
    writeFile(draft, "[Desktop Entry]\nType=Application\nName=Draft\nExec=sh -c true\n");
    session->set("PATH", "/usr/bin");

    // when
    QVERIFY(runs(QStringLiteral("desktop-file-install"),
                 {QString::fromStdString("--dir=" + session->autostart().native()),
                  QString::fromStdString(draft)}));

    // then
    const LoginItemArrayRef items = allLoginItems();
    QVERIFY(items);
    QCOMPARE(items->size(), size_t{1});
    QCOMPARE(items->front().URL->path(), std::string("/usr/bin/sh"));
}

void LoginItemRunnersTest::anItemThatAnotherProgramEditsKeepsItsPlace()
{
    // given
    QVERIFY(addLoginItemWithPath("/bin/sh", true));
    const std::string first = *namesIn(session->autostart()).begin();
    QVERIFY(addLoginItemWithPath("/bin/true", false));
    const LoginItemUrlRef url = allLoginItems()->at(0).URL;

    // when
    QVERIFY(runs(QStringLiteral("desktop-file-edit"),
                 {"--set-comment=Caf\u00e9", "--set-icon=painter",
                  QString::fromStdString(session->autostart() / first)}));

    // then
    QVERIFY(readFile(session->autostart() / first).find("Icon=painter") != std::string::npos);
    QCOMPARE(indexForLoginItemWithURL(url), 0);
    QVERIFY(allLoginItems()->at(0).Hidden);
}

QTEST_GUILESS_MAIN(LoginItemRunnersTest)
#include "loginitemrunnerstest.moc"
