#include "tests/till/window/salefixture.h"

#include "till/script/fault.h"

#include <QFile>

using namespace Qt::StringLiterals;

SaleFixture::SaleFixture(const QByteArray &settings)
    : m_service(QStringLiteral(SERVICE_PROGRAM))
    , m_options(till::writeDemoFiles(m_folder.path(), m_service.url(), {}))
{
    m_options.pluginFile = QStringLiteral(LOYALTY_PLUGIN);
    QFile file(m_folder.path() + u"/till.ini.d/own.ini"_s);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("[Till]\n" + settings);
    file.close();
    open();
}

SaleFixture::~SaleFixture() = default;

void SaleFixture::open()
{
    m_opened = std::make_unique<OpenedWindow>(m_options);
    window().resize(m_size);
    window().show();
    // Without a window manager nobody does.
    window().activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window()));
}

void SaleFixture::givenRestart()
{
    m_opened.reset();
    open();
}

void SaleFixture::givenWindowOf(const QSize &size)
{
    m_size = size;
    window().resize(size);
    QCoreApplication::processEvents();
}

void SaleFixture::whenConnectionIsLost()
{
    till::sendFault(u"refuse 9"_s);
    whenDialogOpens([](QDialog &dialog) { click(dialog, "accept"); });
    whenKeyPressed(Qt::Key_F7);
}

void SaleFixture::whenPaidAndClosed()
{
    whenDialogOpens([](QDialog &dialog) { click(dialog, "cash"); });
    whenKeyPressed(Qt::Key_F8);
}

void SaleFixture::whenFormOpensEnter(const QString &text)
{
    whenDialogOpens([text](QDialog &dialog) {
        auto *input = dialog.findChild<QLineEdit *>();
        input->selectAll();
        QTest::keyClicks(input, text);
        QTest::keyClick(input, Qt::Key_Return);
    });
}

void SaleFixture::click(const QDialog &dialog, const char *button)
{
    QTest::mouseClick(dialog.findChild<QPushButton *>(QString::fromLatin1(button)), Qt::LeftButton);
}
