#pragma once

#include <QTabWidget>

// The tabbed dialog of the controls. Tabs are numbered from 0. Tab is the
// current tab; changing it, by the user or by setTab, raises
// Click(PreviousTab) with the tab that was current before. A withdrawn tab is
// a disabled one (setTabEnabled(i, false)): the user cannot select it.
class SSTab : public QTabWidget {
    Q_OBJECT
    Q_PROPERTY(qint16 Tab READ Tab WRITE setTab)
public:
    explicit SSTab(QWidget* parent = nullptr);

    qint16 Tab() const { return static_cast<qint16>(currentIndex()); }
    // A tab outside 0..Tabs()-1 raises 380 "Invalid property value".
    void setTab(qint16 intTab);
    qint16 Tabs() const { return static_cast<qint16>(count()); }

    bool TabEnabled(qint16 intTab) const;
    // setTabEnabled(int, bool) of QTabWidget withdraws and restores a tab.
    using QTabWidget::setTabEnabled;

    QString TabCaption(qint16 intTab) const;
    void setTabCaption(qint16 intTab, const QString& strCaption);

signals:
    void Click(qint16 PreviousTab);

private:
    void onCurrentChanged(int index);
    int m_previous = -1;
};
