#include "HostPage.h"

#include <QSplitter>
#include <QVBoxLayout>

HostPage::HostPage(const QString& strName, QWidget* parent)
    : QWidget(parent), m_splitter(new QSplitter(Qt::Horizontal, this)),
      m_editor(new EditorSlot(m_splitter)) {
    setObjectName(strName);
    m_splitter->setObjectName(QStringLiteral("splPage"));
    m_editor->setObjectName(QStringLiteral("EditorSlot"));
    m_editor->setMinimumWidth(200);
    m_splitter->addWidget(m_editor);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_splitter);
}

void HostPage::SetGallery(QWidget* gallery) {
    m_gallery = gallery;
    m_splitter->insertWidget(0, gallery);
    m_splitter->setStretchFactor(0, 2);
    m_splitter->setStretchFactor(1, 3);
    // The right side gets its room before anything is in it.
    m_splitter->setSizes({400, 600});
}

void HostPage::Activate() {
    if (m_loaded)
        return;
    m_loaded = true;
    Load();
}
