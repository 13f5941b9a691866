#include "HelpWindow.h"

#include <QFileInfo>
#include <QTextBrowser>
#include <QVBoxLayout>

// The help pages are compiled into the host library; a static library's
// resources are registered by hand.
static void InitHelpResources() {
    Q_INIT_RESOURCE(help);
}

QStringList HelpWindow::Pages() {
    return {ContentsPage(), PlanningPage(), RunningPage(), KeysPage()};
}

HelpWindow::HelpWindow(QWidget* owner) : QWidget(owner, Qt::Window) {
    InitHelpResources();
    setObjectName(QStringLiteral("frmHelp"));
    setWindowTitle(QStringLiteral("Corvantis Help"));
    txtHelp = new QTextBrowser(this);
    txtHelp->setObjectName(QStringLiteral("txtHelp"));
    txtHelp->setSearchPaths({QStringLiteral(":/help")});
    txtHelp->setOpenExternalLinks(true);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(txtHelp);
    resize(560, 520);
}

void HelpWindow::ShowPage(const QString& strPage) {
    const QString page = Pages().contains(strPage) ? strPage : ContentsPage();
    txtHelp->setSource(QUrl(QStringLiteral("qrc:/help/") + page));
    if (!isVisible() && parentWidget()) {
        // Over the main window, on the operator's screen.
        QRect rect(QPoint(0, 0), size());
        rect.moveCenter(parentWidget()->window()->geometry().center());
        move(rect.topLeft());
    }
    show();
    raise();
    activateWindow();
}

QString HelpWindow::CurrentPage() const {
    return QFileInfo(txtHelp->source().path()).fileName();
}
