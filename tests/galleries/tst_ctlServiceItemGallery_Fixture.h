#pragma once

// Shared by the suites of the service item gallery: a fresh database, the
// scripted platform and a gallery on top of them, with small helpers to build
// items and to read what the gallery shows.

#include "ScriptedPlatform.h"
#include "Settings.h"
#include "TestDatabase.h"
#include "TraceFile.h"
#include "foundations/VBStatusBar.h"
#include "foundations/VBToolBar.h"
#include "foundations/VBTreeWidget.h"
#include "galleries/ctlServiceItemGallery.h"

#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

#include <memory>

struct GalleryFixture {
    // The database first, so that the gallery works on it; the platform before the
    // gallery, so that no box of its construction reaches a real screen.
    TestDatabase db;
    ScriptedPlatform platform;
    std::unique_ptr<ctlServiceItemGallery> gallery;

    // lngMaxSIsToShow above 0 is written to Corvantis.ini for the gallery to read.
    explicit GalleryFixture(qint32 lngMaxSIsToShow = 0) {
        if (lngMaxSIsToShow > 0)
            Settings::WritePrivateProfileString(QStringLiteral("Options"),
                                                QStringLiteral("MaxSIsToShow"),
                                                QString::number(lngMaxSIsToShow));
        gallery = std::make_unique<ctlServiceItemGallery>();
        Settings::DeletePrivateProfileKey(QStringLiteral("Options"),
                                          QStringLiteral("MaxSIsToShow"));
        gallery->resize(600, 500);
        gallery->show();
        (void)QTest::qWaitForWindowExposed(gallery.get());
    }

    // An item with exactly these fields (a null QVariant stores Null).
    qint32 Item(qint32 typeId, const QVariant& description, const QVariant& content = QVariant(),
                const QVariant& source = QVariant(), const QVariant& provider = QVariant()) {
        const qint32 id = db.AddServiceItem(typeId, QStringLiteral("x"));
        if (id == 0)
            return 0;
        const bool ok =
            db.Exec(QStringLiteral("UPDATE ServiceItems SET ServiceItemDescription = ?, "
                                   "ServiceItemContent = ?, ServiceItemSource = ?, "
                                   "ServiceItemProvider = ? WHERE ServiceItemID = ?"),
                    {Null(description), Null(content), Null(source), Null(provider), id});
        return ok ? id : 0;
    }
    static QVariant Null(const QVariant& v) {
        return v.isNull() ? QVariant(QMetaType::fromType<QString>()) : v;
    }

    VBTreeWidget* Tree() const { return gallery->tvwServiceItems; }
    VBTreeWidget* List() const { return gallery->lvwServiceItems; }

    // Every key of a view, in the order of creation.
    static QStringList Keys(VBTreeWidget* view) {
        QStringList keys;
        for (qint32 i = 1; i <= view->Count(); ++i)
            keys << view->Nodes(i).Key();
        return keys;
    }
    // The keys of the item nodes of the tree, in creation order.
    QStringList ItemKeys() const {
        QStringList keys;
        for (const QString& key : Keys(Tree()))
            if (key.contains(QStringLiteral(";;SI;")))
                keys << key;
        return keys;
    }
    QString Panel(qint32 n) const { return gallery->StatusBar1->Panels(n)->text(); }
    QAction* Button(const QString& key) const { return gallery->Toolbar2->Buttons(key); }

    // Clicks a node or list item with the mouse.
    void ClickNode(VBTreeWidget* view, const QString& key) {
        QTreeWidgetItem* item = view->Nodes(key).Item();
        view->scrollToItem(item);
        QTest::mouseClick(view->viewport(), Qt::LeftButton, Qt::NoModifier,
                          view->visualItemRect(item).center());
    }
    void CtrlClickNode(VBTreeWidget* view, const QString& key) {
        QTreeWidgetItem* item = view->Nodes(key).Item();
        view->scrollToItem(item);
        QTest::mouseClick(view->viewport(), Qt::LeftButton, Qt::ControlModifier,
                          view->visualItemRect(item).center());
    }
    void DoubleClickNode(VBTreeWidget* view, const QString& key) {
        QTreeWidgetItem* item = view->Nodes(key).Item();
        view->scrollToItem(item);
        const QPoint at = view->visualItemRect(item).center();
        QTest::mouseClick(view->viewport(), Qt::LeftButton, Qt::NoModifier, at);
        QTest::mouseDClick(view->viewport(), Qt::LeftButton, Qt::NoModifier, at);
    }
    // Presses a toolbar button, enabled or not.
    void Press(const QString& key) {
        QMetaObject::invokeMethod(gallery.get(), "Toolbar2_ButtonClick", Qt::DirectConnection,
                                  Q_ARG(QAction*, Button(key)));
    }

    // The trace lines written since the fixture was made, one text.
    QString Trace() const { return m_trace.NewLines().join(QLatin1Char('\n')); }

private:
    TraceFile m_trace; // marks the trace file as it was before the gallery
};

// The arguments of one emission of SIClicked, SIListFilterChanged, ...
inline QStringList Args(const QList<QVariant>& emission) {
    QStringList texts;
    for (const QVariant& v : emission)
        texts << v.toString();
    return texts;
}
