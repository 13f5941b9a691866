#pragma once

// What the QVTimeSelector suites share: the control placed on a shown form as
// a host places it, the user's ways of typing and clicking, and the trace
// lines written since a test began.

#include "serviceitems/QVTimeSelector.h"

#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QStringList>
#include <QTest>
#include <QToolButton>
#include <QWidget>

namespace TimeSelectorTest {

// The control on a form of the host.
struct Host {
    QWidget form;
    QVTimeSelector* ts;

    Host() : ts(new QVTimeSelector(&form)) {
        form.resize(900, 120);
        ts->move(10, 10);
        form.show();
    }
    bool Exposed() { return QTest::qWaitForWindowExposed(&form); }

    QLineEdit* Box(const char* pszName) const { return ts->findChild<QLineEdit*>(pszName); }
    QLabel* Label(const char* pszName) const { return ts->findChild<QLabel*>(pszName); }
    QWidget* Spin(const char* pszName) const { return ts->findChild<QWidget*>(pszName); }
    QString Text(const char* pszBox) const { return Box(pszBox)->text(); }
    double Value(const char* pszBox) const { return Box(pszBox)->text().toDouble(); }
};

// A click into the box (which selects its text), then the keys.
inline void TypeInto(QLineEdit* txt, const QString& strKeys) {
    QTest::mouseClick(txt, Qt::LeftButton, Qt::NoModifier, QPoint(3, txt->height() / 2));
    QTest::keyClicks(txt, strKeys);
}

// Select everything in the box and delete it.
inline void ClearBox(QLineEdit* txt) {
    QTest::mouseClick(txt, Qt::LeftButton, Qt::NoModifier, QPoint(3, txt->height() / 2));
    QTest::keyClick(txt, Qt::Key_Backspace);
}

// A click on the upper or lower half of a spin button pair.
inline void ClickSpin(QWidget* ud, const char* pszWhich) {
    QTest::mouseClick(ud->findChild<QToolButton*>(pszWhich), Qt::LeftButton);
}

// The trace lines written after the moment the reader was made.
class TraceReader {
public:
    TraceReader() : m_lngStart(QFile(FilePath()).size()) {}

    static QString FilePath() { return qEnvironmentVariable("CORVANTIS_TRACE"); }

    QStringList Lines() const {
        QFile file(FilePath());
        if (!file.open(QIODevice::ReadOnly))
            return {};
        file.seek(m_lngStart);
        QStringList lines = QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'));
        for (QString& line : lines)
            if (line.endsWith(QLatin1Char('\r')))
                line.chop(1);
        lines.removeAll(QString());
        return lines;
    }

    // The lines of one member of the control, in order.
    QStringList LinesOf(const QString& strMember) const {
        const QString strPrefix =
            QStringLiteral("QVLTCONTROLS:QVTimeSelector:") + strMember + QStringLiteral(" @ ");
        QStringList found;
        for (const QString& line : Lines())
            if (line.startsWith(strPrefix))
                found << line;
        return found;
    }

    // The members traced, in order ("Hours", "ControlsRearranged", ...).
    QStringList Members() const {
        QStringList members;
        const QString strPrefix = QStringLiteral("QVLTCONTROLS:QVTimeSelector:");
        for (const QString& line : Lines())
            if (line.startsWith(strPrefix))
                members << line.mid(strPrefix.size()).section(QStringLiteral(" @ "), 0, 0);
        return members;
    }

private:
    qint64 m_lngStart;
};

} // namespace TimeSelectorTest
