#include "foundations/modQVLTControls.h"

#include "foundations/ErrorReport.h"
#include "foundations/Platform.h"
#include "foundations/VBError.h"
#include "foundations/VBRuntime.h"

#include <QAbstractFileIconProvider>
#include <QFileDialog>
#include <QImageReader>
#include <QListView>
#include <QWidget>

namespace {

const QString& moduleName() {
    static const QString name = QStringLiteral("modQVLTControls");
    return name;
}

QWidget* checkedWidget(QWidget* widget) {
    if (!widget)
        throw VBError(VBErr::ObjectNotSet);
    return widget;
}

// Icons of the picture picker: the picture itself, scaled down, for files that
// hold an image; the usual icon for the others.
class ThumbnailIconProvider : public QAbstractFileIconProvider {
public:
    static constexpr int Size = 96;

    QIcon icon(const QFileInfo& info) const override {
        if (info.isFile()) {
            QImageReader reader(info.absoluteFilePath());
            if (reader.canRead()) {
                const QSize size = reader.size();
                if (size.isValid())
                    reader.setScaledSize(size.scaled(Size, Size, Qt::KeepAspectRatio));
                const QImage image = reader.read();
                if (!image.isNull())
                    return QIcon(QPixmap::fromImage(image));
            }
        }
        return QAbstractFileIconProvider::icon(info);
    }
};

} // namespace

namespace modQVLTControls {

// ---- Strings and paths ------------------------------------------------------

QString GetInstance(const QString& Data, const QString& Separator, qint32 Instance) {
    if (Instance == 0)
        return QStringLiteral("Cannot return an instance of zero");
    if (Instance < 0)
        throw VBError(VBErr::InvalidProcedureCall);
    const qsizetype sepLen = Separator.size();
    if (Instance == 1) {
        const qsizetype first = sepLen ? Data.indexOf(Separator) : -1;
        return first < 0 ? Data : Data.left(first);
    }

    // Count the separators, stepping past each whole one, and note where the
    // last one stood.
    qint32 count = 0;
    qsizetype last = -1;
    if (sepLen > 0) {
        for (qsizetype at = Data.indexOf(Separator); at >= 0;
             at = Data.indexOf(Separator, at + sepLen)) {
            ++count;
            last = at;
        }
    }
    if (Instance > count + 1)
        return QStringLiteral("Instance Too Large");
    if (Instance == count + 1)
        return Data.mid(last + sepLen);

    // The (Instance - 1)-th separator, and what follows it up to the next one.
    qsizetype at = Data.indexOf(Separator);
    for (qint32 i = 2; i < Instance; ++i)
        at = Data.indexOf(Separator, at + sepLen);
    const qsizetype from = at + sepLen;
    const qsizetype next = Data.indexOf(Separator, from);
    return Data.mid(from, next - from);
}

qint32 GetInstances(const QString& Data, const QString& SubString) {
    if (SubString.isEmpty())
        return 0;
    qint32 count = 0;
    for (qsizetype at = Data.indexOf(SubString); at >= 0; at = Data.indexOf(SubString, at + 1))
        ++count;
    return count;
}

QString GetWhatComesBetween(const QString& strData, const QString& strLeftMarker,
                            const QString& strRightMarker) {
    QString strResult;
    ErrorReport::TryFullErrorBox(
        ErrorReport::FullSource(moduleName(), QStringLiteral("GetWhatComesBetween")), [&] {
            const qint32 lngStart = VB::InStr(1, strData, strLeftMarker) + VB::Len(strLeftMarker);
            const qint32 lngEnd = VB::InStr(1, strData, strRightMarker);
            strResult = VB::Mid(strData, lngStart, lngEnd - lngStart);
        });
    return strResult;
}

QString TrimData(QString& strString, const QString& strTrim) {
    if (strTrim.isEmpty())
        return strString;
    while (strString.startsWith(strTrim))
        strString.remove(0, strTrim.size());
    while (strString.endsWith(strTrim))
        strString.chop(strTrim.size());
    return strString;
}

QString GetFileName(const QString& strPath) {
    const qsizetype slash = strPath.lastIndexOf(QLatin1Char('\\'));
    return slash < 0 ? strPath : strPath.mid(slash + 1);
}

QString GetFileExtension(const QString& strPath) {
    const qsizetype dot = strPath.lastIndexOf(QLatin1Char('.'));
    return dot < 0 ? strPath : strPath.mid(dot + 1);
}

QString AddSlash(QString& strPath) {
    if (!strPath.endsWith(QLatin1Char('\\')))
        strPath += QLatin1Char('\\');
    return strPath;
}

// ---- Trees and lists ---------------------------------------------------------

void LockTreeview(QWidget* tree) {
    checkedWidget(tree)->setUpdatesEnabled(false);
}

void UnLockTreeview(QWidget* tree) {
    checkedWidget(tree)->setUpdatesEnabled(true);
}

void ExpandAllNodesByLevel(VBTreeWidget* tree, qint16 ExpandLevel) {
    const bool done = ErrorReport::TryErrorBox(
        ErrorReport::Prefix(moduleName(), QStringLiteral("ExpandAllNodesByLevel")), [&] {
            LockTreeview(tree);
            if (ExpandLevel != 0) {
                if (tree->Count() > 0) {
                    for (VBNode node = tree->Nodes(1).Root().FirstSibling(); node;
                         node = node.Next())
                        ExpandSubNodes(node, static_cast<qint16>(ExpandLevel - 1));
                }
            } else {
                for (qint32 i = 1; i <= tree->Count(); ++i) {
                    VBNode node = tree->Nodes(i);
                    if (node.Children() > 0)
                        node.setExpanded(true);
                }
            }
            UnLockTreeview(tree);
        });
    // A failure leaves the tree locked in the middle; let it draw again.
    if (!done && tree)
        tree->setUpdatesEnabled(true);
}

void ExpandSubNodes(const VBNode& node, qint16 ExpandLevel) {
    if (node.IsNothing())
        throw VBError(VBErr::ObjectNotSet);
    if (ExpandLevel > 0 && node.Children() > 0) {
        VBNode(node).setExpanded(true);
        if (ExpandLevel > 1) {
            for (VBNode child = node.Child(); child; child = child.Next())
                ExpandSubNodes(child, static_cast<qint16>(ExpandLevel - 1));
        }
    }
}

bool NodeAlreadyExists(const QVariant& Key, VBTreeWidget* tree) {
    bool blnExists = false;
    ErrorReport::TryFullErrorBox(
        ErrorReport::FullSource(moduleName(), QStringLiteral("NodeAlreadyExists")), [&] {
            try {
                if (!tree)
                    throw VBError(VBErr::ObjectNotSet);
                tree->Nodes(Key);
                blnExists = true;
            } catch (const VBError& e) {
                if (e.Number != VBErr::IndexOutOfBounds && e.Number != VBErr::ElementNotFound &&
                    e.Number != VBErr::InvalidKey)
                    throw;
            }
        });
    return blnExists;
}

bool ListviewItemAlreadyExists(const QVariant& Key, VBTreeWidget* list) {
    bool blnExists = false;
    ErrorReport::TryFullErrorBox(
        ErrorReport::FullSource(moduleName(), QStringLiteral("ListviewItemAlreadyExists")), [&] {
            try {
                if (!list)
                    throw VBError(VBErr::ObjectNotSet);
                if (Key.typeId() == QMetaType::QString)
                    list->ListItems(Key.toString());
                else
                    list->ListItems(VB::CLng(Key));
                blnExists = true;
            } catch (const VBError& e) {
                if (e.Number != VBErr::ElementNotFound)
                    throw;
            }
        });
    return blnExists;
}

// ---- Platform helpers ----------------------------------------------------------

qint32 RunShellExecute(const QString& sTopic, const QString& sFile, const QString& sParams,
                       const QString& sDirectory, qint32 nShowCmd) {
    const qint32 lngResult =
        Platform::Current().ShellExecute(sTopic, sFile, sParams, sDirectory, nShowCmd);
    if (lngResult == 31 || lngResult == 49)
        Platform::Current().OpenWith(sFile);
    return lngResult;
}

bool Is2KShell() {
    return true;
}

qint32 DialogHookProc(QFileDialog* dialog) {
    if (!dialog)
        return 0;
    static ThumbnailIconProvider thumbnails;
    dialog->setOption(QFileDialog::DontUseNativeDialog, true);
    dialog->setIconProvider(&thumbnails);
    dialog->setViewMode(QFileDialog::List);
    if (auto* list = dialog->findChild<QListView*>(QStringLiteral("listView"))) {
        list->setViewMode(QListView::IconMode);
        list->setIconSize(QSize(ThumbnailIconProvider::Size, ThumbnailIconProvider::Size));
        list->setGridSize(
            QSize(ThumbnailIconProvider::Size + 32, ThumbnailIconProvider::Size + 40));
        list->setResizeMode(QListView::Adjust);
        list->setWordWrap(true);
    }
    return 0;
}

bool IsArrayEmpty(const QVariant& arr) {
    if (!arr.isValid() || arr.isNull())
        return true;
    switch (arr.typeId()) {
    case QMetaType::QVariantList:
        return arr.toList().isEmpty();
    case QMetaType::QStringList:
        return arr.toStringList().isEmpty();
    case QMetaType::QByteArrayList:
        return arr.value<QByteArrayList>().isEmpty();
    default:
        return true;
    }
}

} // namespace modQVLTControls
