#pragma once

#include <QWidget>

class QTextBrowser;

// Corvantis's user guide: a few HTML pages shipped inside the program (the
// resource folder ":/help"), shown in a window of their own over the main
// window, so that it opens on the operator's screen and never on the
// projector. One window serves every call: F1, the "?" buttons, the Help menu.
class HelpWindow : public QWidget {
    Q_OBJECT
public:
    // The pages: "index.html", "planning.html", "running.html", "keys.html".
    static QString ContentsPage() { return QStringLiteral("index.html"); }
    static QString PlanningPage() { return QStringLiteral("planning.html"); }
    static QString RunningPage() { return QStringLiteral("running.html"); }
    static QString KeysPage() { return QStringLiteral("keys.html"); }
    static QStringList Pages();

    explicit HelpWindow(QWidget* owner);

    // Shows the page (one of Pages()) and brings the window up.
    void ShowPage(const QString& strPage);
    QString CurrentPage() const;

    QTextBrowser* txtHelp;
};
