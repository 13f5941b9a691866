// The body shared by the flat lists: widgets, filling from the database,
// column sort and the resize rule.

#include "serviceitems/FlatList.h"

#include "DataAccess.h"
#include "Recordset.h"
#include "TraceLog.h"
#include "foundations/ErrorReport.h"
#include "foundations/Platform.h"
#include "foundations/RKLvwBannerFilter.h"
#include "foundations/TraceLine.h"
#include "foundations/Twips.h"
#include "foundations/VBConstants.h"
#include "foundations/VBImageList.h"
#include "foundations/VBRuntime.h"
#include "foundations/VBTreeWidget.h"
#include "foundations/modQVLTControls.h"

#include <QHeaderView>
#include <QLabel>

namespace {
// Recordset type of a read-only snapshot.
constexpr qint16 kSnapshot = 4;
// Layout numbers, in twips.
constexpr qint32 kLabelHeight = 255;
constexpr qint32 kColumnWidth = 1440;

template <class W> W* Named(W* widget, const QString& strName) {
    widget->setObjectName(strName);
    return widget;
}
} // namespace

FlatList::FlatList(QWidget* owner, const FlatListKind& kind) : m_owner(owner), m_kind(kind) {
    lblMainCaption = Named(new QLabel(owner), QStringLiteral("lblMainCaption"));
    QFont fntCaption = lblMainCaption->font();
    fntCaption.setBold(true);
    lblMainCaption->setFont(fntCaption);
    lblFilterDetails = Named(new QLabel(owner), QStringLiteral("lblFilterDetails"));
    TTLvwBannerFilter1 = Named(new RKLvwBannerFilter(owner), QStringLiteral("TTLvwBannerFilter1"));
    imlIcons = new VBImageList(QStringLiteral("imlIcons"), owner);
    lvw = Named(new VBTreeWidget(owner), m_kind.strListName);
    lvw->SetListView();
    lvw->setImageList(imlIcons);
    lvw->setSelectionMode(QAbstractItemView::ExtendedSelection);
    for (const QString& strCaption : m_kind.columns)
        lvw->AddColumnHeader(QString(), strCaption, kColumnWidth);
    lvw->header()->setSectionsClickable(m_kind.blnSortable);

    // UserControl_Initialize: the banner filter works on the list view.
    TTLvwBannerFilter1->setItemDescription(QStringLiteral("service items"));
    TTLvwBannerFilter1->setListView(lvw);
}

// UserControl_Terminate: the banner filter lets go of the list view.
FlatList::~FlatList() {
    ErrorReport::TryFullErrorBox(
        ErrorReport::FullSource(m_kind.strClass, QStringLiteral("UserControl_Terminate")),
        [&] { ReleaseListViewFilter(); });
}

void FlatList::trace(const QString& strMember, const QString& strArg,
                     const QVariant& varValue) const {
    TraceLine line(m_kind.strClass, strMember);
    if (!strArg.isEmpty())
        line.Arg(strArg, varValue);
    line.Write();
}

void FlatList::ShowProperties() {
    trace(QStringLiteral("ShowProperties"));
    ErrorReport::TryFullErrorBox(
        ErrorReport::FullSource(m_kind.strClass, QStringLiteral("ShowProperties")), [&] {
            lblMainCaption->setText(strDescription);
            lblFilterDetails->setText(QStringLiteral("Filter Details: ") + strFilterInPlainEnglish);
            lvw->Clear();
            // The part in hand; a single id that is not a number is reported before
            // any part was read, so its box ends with the bare words.
            QString strPart;
            if (VB::InStr(strItems, QStringLiteral(",")) > 0) {
                const qint32 lngParts =
                    modQVLTControls::GetInstances(strItems, QStringLiteral(",")) + 1;
                for (qint32 i = 1; i <= lngParts; ++i) {
                    strPart = modQVLTControls::GetInstance(strItems, QStringLiteral(","), i);
                    if (VB::IsNumeric(strPart))
                        AddItemToListview(VB::CLng(strPart));
                    else
                        showBadID(strPart, true);
                }
            } else if (!strItems.isEmpty()) {
                if (strItems != QLatin1String("All")) {
                    if (VB::IsNumeric(strItems))
                        AddItemToListview(VB::CLng(strItems));
                    else
                        showBadID(strPart, false);
                } else {
                    QString strErrorMessage;
                    ShowAllServiceItems(strWhereClauseInEffect, strErrorMessage);
                    if (!strErrorMessage.isEmpty())
                        Platform::Current().MsgBox(strErrorMessage);
                }
            }
            TTLvwBannerFilter1->Refresh();
        });
}

void FlatList::showBadID(const QString& strPart, bool blnTrace) {
    Platform::Current().MsgBox(m_kind.strErrorWords + strPart, vbOKOnly,
                               QStringLiteral("System Error"));
    if (blnTrace)
        TraceLog::Instance().WriteErrorLine(QStringLiteral("QVLTCONTROLS:") + m_kind.strClass +
                                            QStringLiteral(":ShowProperties: ") +
                                            m_kind.strErrorWords + strPart);
}

void FlatList::AddItemToListview(qint32 lngID) {
    trace(QStringLiteral("AddItemToListview"), QStringLiteral("lngServiceItemID"), lngID);
    ErrorReport::TryFullErrorBox(
        ErrorReport::FullSource(m_kind.strClass, QStringLiteral("AddItemToListview")), [&] {
            if (m_kind.blnSkipBlank && lngID == 1)
                return;
            QString strErrorMessage;
            std::unique_ptr<Recordset> rs;
            (DataAccess::Instance().*m_kind.query)(m_kind.strOneRowWhere + QString::number(lngID),
                                                   kSnapshot, strErrorMessage, rs);
            if (!strErrorMessage.isEmpty()) {
                Platform::Current().MsgBox(strErrorMessage);
                return;
            }
            const QString strKey = m_kind.strKeyPrefix + QString::number(lngID);
            if (modQVLTControls::ListviewItemAlreadyExists(strKey, lvw))
                return;
            if (rs && !rs->Eof())
                addEntry(*rs, strKey);
        });
}

void FlatList::ShowAllServiceItems(const QString& strWhereClause, QString& strErrorMessage) {
    trace(QStringLiteral("ShowAllServiceItems"), QStringLiteral("strWhereClause"), strWhereClause);
    ErrorReport::TryErrorReturn(
        ErrorReport::Prefix(m_kind.strClass, QStringLiteral("ShowAllServiceItems")),
        strErrorMessage, [&] {
            lvw->Clear();
            std::unique_ptr<Recordset> rs;
            (DataAccess::Instance().*m_kind.query)(strWhereClause, kSnapshot, strErrorMessage, rs);
            if (!strErrorMessage.isEmpty() || !rs)
                return;
            for (; !rs->Eof(); rs->MoveNext()) {
                const qint32 lngID = VB::CLng(rs->Fields(m_kind.strIdField));
                if (m_kind.blnSkipBlank && lngID == 1)
                    continue;
                const QString strKey = m_kind.strKeyPrefix + QString::number(lngID);
                if (lvw->KeyExists(strKey))
                    continue;
                addEntry(*rs, strKey);
            }
        });
}

void FlatList::addEntry(const Recordset& rs, const QString& strKey) {
    const FlatListEntry entry = m_kind.entryOf(rs);
    VBNode item = lvw->AddItem(strKey, entry.strText, QVariant(), entry.varSmallIcon);
    for (qsizetype i = 0; i < entry.subItems.size(); ++i) {
        if (!entry.subItems.at(i).isNull())
            item.setSubItems(static_cast<qint32>(i) + 1, VB::CStr(entry.subItems.at(i)));
    }
    if (m_kind.blnTagIsId)
        item.setTag(IDOfKey(strKey));
}

void FlatList::ColumnClick(int intColumn) {
    trace(m_kind.strListName + QStringLiteral("_ColumnClick"), QStringLiteral("ColumnHeader"),
          intColumn + 1);
    // The order flips on every click, whichever column was clicked: the first
    // click sorts ascending.
    const Qt::SortOrder order = blnSortDescending ? Qt::DescendingOrder : Qt::AscendingOrder;
    blnSortDescending = !blnSortDescending;
    lvw->header()->setSortIndicatorShown(true);
    lvw->header()->setSortIndicator(intColumn, order);
    lvw->sortItems(intColumn, order);
}

void FlatList::ReleaseListViewFilter() {
    TTLvwBannerFilter1->ReleaseListView();
}

void FlatList::Resize() {
    const qint32 lngWidth = m_owner->width();
    lblMainCaption->setGeometry(0, 0, lngWidth, Twips::ToPixels(kLabelHeight));
    lblFilterDetails->setGeometry(0, Twips::ToPixels(kLabelHeight), lngWidth,
                                  Twips::ToPixels(kLabelHeight));
    const int intFilterTop = lblFilterDetails->geometry().bottom() + 1;
    TTLvwBannerFilter1->setGeometry(0, intFilterTop, lngWidth,
                                    TTLvwBannerFilter1->sizeHint().height());
    const int intListTop = TTLvwBannerFilter1->geometry().bottom() + 1;
    lvw->setGeometry(0, intListTop, lngWidth, qMax(0, m_owner->height() - intListTop));
}

QString FlatList::SelectedIDs() const {
    QString strIDs;
    for (qint32 i = 1; i <= lvw->topLevelItemCount(); ++i) {
        const VBNode item = lvw->ListItems(i);
        if (item.Selected())
            strIDs += QString::number(IDOfKey(item.Key())) + QStringLiteral(",");
    }
    return modQVLTControls::TrimData(strIDs, QStringLiteral(","));
}

qint32 FlatList::IDOfKey(const QString& strKey) {
    return VB::CLng(strKey.mid(strKey.indexOf(QLatin1Char(';')) + 1));
}
