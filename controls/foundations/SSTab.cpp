#include "foundations/SSTab.h"

#include "foundations/VBError.h"

namespace {
constexpr qint32 InvalidPropertyValue = 380;

void checkTab(const QTabWidget* tabs, qint16 intTab) {
    if (intTab < 0 || intTab >= tabs->count())
        throw VBError(InvalidPropertyValue, QStringLiteral("Invalid property value"));
}
} // namespace

SSTab::SSTab(QWidget* parent) : QTabWidget(parent) {
    connect(this, &QTabWidget::currentChanged, this, &SSTab::onCurrentChanged);
}

void SSTab::setTab(qint16 intTab) {
    checkTab(this, intTab);
    setCurrentIndex(intTab);
}

bool SSTab::TabEnabled(qint16 intTab) const {
    checkTab(this, intTab);
    return isTabEnabled(intTab);
}

QString SSTab::TabCaption(qint16 intTab) const {
    checkTab(this, intTab);
    return tabText(intTab);
}

void SSTab::setTabCaption(qint16 intTab, const QString& strCaption) {
    checkTab(this, intTab);
    setTabText(intTab, strCaption);
}

void SSTab::onCurrentChanged(int index) {
    const int previous = m_previous;
    m_previous = index;
    // The first tab becoming current as tabs are added is no change of tab.
    if (previous < 0 || index < 0)
        return;
    emit Click(static_cast<qint16>(previous));
}
