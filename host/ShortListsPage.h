#pragma once

#include "HostPage.h"

class ctlShortList;
class ctlShortListGallery;

// The short lists: the short-list gallery on the left and, on the right, the
// short-list editor showing the list clicked last. New in the gallery creates
// the list's record and opens it in the editor at once; a save in the editor
// shows the list's new description in the gallery.
class ShortListsPage : public HostPage {
    Q_OBJECT
public:
    explicit ShortListsPage(QWidget* parent = nullptr);
    ~ShortListsPage() override;

    // The editor on the right, or none before a list was clicked.
    ctlShortList* ShortListEditor() const;

    ctlShortListGallery* ctlShortListGallery1;

protected:
    void Load() override;

private:
    void ctlShortListGallery1_ShortListClicked(const QString& strID, const QString& strDescription);
    void cmdApplyChanges_Click(qint32 lngShortListID);
};
