// The program's style: the desktop's own, with drawn pictures on the buttons of bars that
// have no room for all they hold.
#include "HostStyle.h"

#include "galleries/ToolbarPictures.h"

#include <QApplication>
#include <QMenuBar>
#include <QPointer>
#include <QToolBar>
#include <QToolButton>
#include <QtTest>

class tst_HostStyle : public QObject {
    Q_OBJECT

private:
    static QImage Picture(const QIcon& icon) {
        return icon.pixmap(16, 16).toImage().convertToFormat(QImage::Format_ARGB32);
    }

    QPointer<HostStyle> m_style;

private slots:
    void initTestCase() {
        m_style = new HostStyle;
        QApplication::setStyle(m_style);
    }

    void theOverflowButtonsOfBarsHaveTheDrawnPictures() {
        for (const QStyle::StandardPixmap kind : {QStyle::SP_ToolBarHorizontalExtensionButton,
                                                  QStyle::SP_ToolBarVerticalExtensionButton})
            QCOMPARE(Picture(m_style->standardIcon(kind)),
                     Picture(QIcon(ToolbarPictures::For(m_style, kind))));
        QVERIFY(Picture(m_style->standardIcon(QStyle::SP_ToolBarHorizontalExtensionButton)) !=
                Picture(m_style->standardIcon(QStyle::SP_ToolBarVerticalExtensionButton)));
    }

    void otherPicturesComeFromTheDesktopStyle() {
        QCOMPARE(Picture(m_style->standardIcon(QStyle::SP_DirHomeIcon)),
                 Picture(m_style->baseStyle()->standardIcon(QStyle::SP_DirHomeIcon)));
    }

    void aToolBarMadeUnderTheStyleShowsTheDrawnPicture() {
        QToolBar bar;
        auto* more = bar.findChild<QToolButton*>(QStringLiteral("qt_toolbar_ext_button"));
        QVERIFY(more);
        QCOMPARE(Picture(more->icon()),
                 Picture(QIcon(
                     ToolbarPictures::For(m_style, QStyle::SP_ToolBarHorizontalExtensionButton))));
    }

    void theStyleKeepsTheDesktopStylesMeasures() {
        QCOMPARE(m_style->pixelMetric(QStyle::PM_ToolBarIconSize),
                 m_style->baseStyle()->pixelMetric(QStyle::PM_ToolBarIconSize));
    }
};

QTEST_MAIN(tst_HostStyle)
#include "tst_HostStyle.moc"
