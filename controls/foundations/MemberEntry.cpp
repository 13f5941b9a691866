#include "foundations/MemberEntry.h"

#include "foundations/modQVLTControls.h"

MemberEntry::MemberEntry(const QString& strClass, const QString& strMember)
    : m_strClass(strClass), m_strMember(strMember),
      m_strPrefix(ErrorReport::Prefix(strClass, strMember)), m_trace(strClass, strMember) {}

MemberEntry& MemberEntry::Arg(const QString& strName, const QVariant& varValue) & {
    m_trace.Arg(strName, varValue);
    return *this;
}

MemberEntry&& MemberEntry::Arg(const QString& strName, const QVariant& varValue) && {
    return std::move(Arg(strName, varValue));
}

MemberEntry& MemberEntry::Spelt() & {
    m_strPrefix = QStringLiteral("QVLTCONTROLS:") + m_strClass + QLatin1Char(':') + m_strMember +
                  QStringLiteral(" : Error number is ");
    return *this;
}

MemberEntry&& MemberEntry::Spelt() && {
    return std::move(Spelt());
}

MemberEntry& MemberEntry::WithPrefix(const QString& strErrorPrefix) & {
    m_strPrefix = strErrorPrefix;
    return *this;
}

MemberEntry&& MemberEntry::WithPrefix(const QString& strErrorPrefix) && {
    return std::move(WithPrefix(strErrorPrefix));
}

MemberEntry& MemberEntry::Enter() & {
    m_trace.Write();
    return *this;
}

MemberEntry&& MemberEntry::Enter() && {
    return std::move(Enter());
}

RedrawLock::RedrawLock(QWidget* tree) : m_tree(tree) {
    if (m_tree)
        modQVLTControls::LockTreeview(m_tree);
}

RedrawLock::~RedrawLock() {
    Release();
}

void RedrawLock::Release() {
    if (m_tree)
        modQVLTControls::UnLockTreeview(m_tree);
    m_tree = nullptr;
}
