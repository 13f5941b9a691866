#pragma once

#include <QList>
#include <QWidget>

class QHBoxLayout;
class QLabel;

// The status bar of the controls: a row of panels, each a QLabel named Panel1,
// Panel2, ... in the order added. Panels are numbered from 1; a number out of
// range raises 35600. A mouse click on a panel raises PanelClick with its
// number.
class VBStatusBar : public QWidget {
    Q_OBJECT
public:
    explicit VBStatusBar(QWidget* parent = nullptr);

    // Adds a panel at the right end and returns it. A width in twips of 0 lets
    // the panel take what is left (spring).
    QLabel* AddPanel(const QString& strText = QString(), qint32 lngWidthTwips = 0);
    QLabel* Panels(qint32 lngIndex) const;
    qint32 PanelCount() const { return static_cast<qint32>(m_panels.size()); }

signals:
    void PanelClick(qint32 index);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QHBoxLayout* m_layout = nullptr;
    QList<QLabel*> m_panels;
};
