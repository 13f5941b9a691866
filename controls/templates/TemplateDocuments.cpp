#include "templates/TemplateDocuments.h"

#include "DataAccess.h"
#include "foundations/Platform.h"

namespace {
// ShellExecute answers above 32 when the program started.
constexpr qint32 kShellDone = 32;
constexpr qint32 kShowNormal = 1;
} // namespace

void TemplateDocuments::RouteThroughPlatform() {
    static const bool blnRouted = [] {
        DataAccess::SetDocumentLauncher([](const QString& strProgram, const QString& strFile) {
            const QString strParams = QStringLiteral("\"") + strFile + QStringLiteral("\"");
            return Platform::Current().ShellExecute(QStringLiteral("open"), strProgram, strParams,
                                                    QString(), kShowNormal) > kShellDone;
        });
        return true;
    }();
    Q_UNUSED(blnRouted);
}
