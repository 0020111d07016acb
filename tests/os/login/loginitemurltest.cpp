#include "os/login/loginitemurl.h"

#include "os/login/loginitemfile.h"
#include "tests/os/login/session.h"

#include <QRegularExpression>
#include <QTest>
#include <QUrl>

/// The URL of a file, and the file that it leads to.
class LoginItemUrlTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void theTextIsEncoded_data();
    void theTextIsEncoded();
    void anyByteOfAPathComesBackOutOfTheText();
    void aPathHasNoSlashAtItsEnd_data();
    void aPathHasNoSlashAtItsEnd();
    void aRelativePathBeginsAtTheWorkingDirectory();
    void equalUrlsAreDifferentObjects();
    void aFileIsFound_data();
    void aFileIsFound();
    void whatIsNotThereIsNoFile_data();
    void whatIsNotThereIsNoFile();
};

void LoginItemUrlTest::init()
{
    QTest::failOnWarning(QRegularExpression(".?"));
}

void LoginItemUrlTest::theTextIsEncoded_data()
{
    QTest::addColumn<LoginItemUrlRef>("url");
    QTest::addColumn<std::string>("text");

    using Kind = LoginItemUrl::Kind;
    QTest::newRow("file") << LoginItemUrl::fromPath("/usr/bin/dex")
                          << std::string("file:///usr/bin/dex");
    QTest::newRow("directory") << LoginItemUrl::fromPath("/usr", Kind::Directory)
                               << std::string("file:///usr/");
    QTest::newRow("root") << LoginItemUrl::fromPath("/", Kind::Directory)
                          << std::string("file:///");
    QTest::newRow("reserved") << LoginItemUrl::fromPath("/a b?c#d%e")
                              << std::string("file:///a%20b%3Fc%23d%25e");
    QTest::newRow("bytes") << LoginItemUrl::fromPath("/\xc3\xa9\xff")
                           << std::string("file:///%C3%A9%FF");
    QTest::newRow("raw") << LoginItemUrl::fromRawText("gone: now") << std::string("gone%3A%20now");
}

void LoginItemUrlTest::theTextIsEncoded()
{
    // given
    QFETCH(LoginItemUrlRef, url);
    QFETCH(std::string, text);

    // when
    const std::string written = url->text();

    // then
    QCOMPARE(written, text);
}

void LoginItemUrlTest::anyByteOfAPathComesBackOutOfTheText()
{
    // given
    std::string path = "/";
    for (int byte = 1; byte < 256; ++byte)
        path += static_cast<char>(byte);

    // when
    const std::string text = LoginItemUrl::fromPath(path)->text();

    // then
    const QByteArray encoded = QByteArray::fromStdString(text.substr(7));
    QVERIFY(QUrl(QString::fromStdString(text), QUrl::StrictMode).isValid());
    QCOMPARE(QByteArray::fromPercentEncoding(encoded), QByteArray::fromStdString(path));
}

void LoginItemUrlTest::aPathHasNoSlashAtItsEnd_data()
{
    QTest::addColumn<std::string>("given");
    QTest::addColumn<std::string>("path");

    QTest::newRow("none") << std::string("/a/b") << std::string("/a/b");
    QTest::newRow("one") << std::string("/a/b/") << std::string("/a/b");
    QTest::newRow("several") << std::string("/a/b//") << std::string("/a/b");
    QTest::newRow("root") << std::string("/") << std::string("/");
}

void LoginItemUrlTest::aPathHasNoSlashAtItsEnd()
{
    // given
    QFETCH(std::string, given);
    QFETCH(std::string, path);

    // when
    const LoginItemUrlRef url = LoginItemUrl::fromPath(given, LoginItemUrl::Kind::Directory);

    // then
    QCOMPARE(url->path(), path);
}

void LoginItemUrlTest::aRelativePathBeginsAtTheWorkingDirectory()
{
    // given
    const std::string folder = std::filesystem::current_path();

    // when
    const LoginItemUrlRef url = LoginItemUrl::fromPath("bin/dex");

    // then
    QCOMPARE(url->path(), folder + "/bin/dex");
}

void LoginItemUrlTest::equalUrlsAreDifferentObjects()
{
    // given
    const LoginItemUrlRef first = LoginItemUrl::fromPath("/usr/bin/dex");

    // when
    const LoginItemUrlRef second = LoginItemUrl::fromPath("/usr/bin/dex");

    // then
    QCOMPARE(second->text(), first->text());
    QVERIFY(second != first);
}

void LoginItemUrlTest::aFileIsFound_data()
{
    QTest::addColumn<std::string>("path");

    QTest::newRow("file") << std::string("/bin/sh");
    QTest::newRow("directory") << std::string("/usr");
    QTest::newRow("device") << std::string("/dev/null");
    QTest::newRow("root") << std::string("/");
}

void LoginItemUrlTest::aFileIsFound()
{
    // given
    QFETCH(std::string, path);
    const LoginItemUrlRef url = LoginItemUrl::fromPath(path);

    // when
    const auto file = LoginItemFile::fromUrl(*url);

    // then
    QVERIFY(file);
    QCOMPARE(file->path(), path);
    QVERIFY(file->isStillThere());
}

void LoginItemUrlTest::whatIsNotThereIsNoFile_data()
{
    QTest::addColumn<LoginItemUrlRef>("url");

    QTest::newRow("missing") << LoginItemUrl::fromPath("/no/such/file");
    QTest::newRow("below a file") << LoginItemUrl::fromPath("/dev/null/file");
    QTest::newRow("empty") << LoginItemUrl::fromPath("");
    QTest::newRow("relative") << LoginItemUrl::fromRawText(".");
    QTest::newRow("a zero inside") << LoginItemUrl::fromPath(std::string("/bin/sh\0x", 9));
    QTest::newRow("too long") << LoginItemUrl::fromPath("/" + std::string(5000, 'x'));
}

void LoginItemUrlTest::whatIsNotThereIsNoFile()
{
    // given
    QFETCH(LoginItemUrlRef, url);

    // when
    const auto file = LoginItemFile::fromUrl(*url);

    // then
    QVERIFY(!file);
}

QTEST_APPLESS_MAIN(LoginItemUrlTest)
#include "loginitemurltest.moc"
