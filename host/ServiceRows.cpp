#include "ServiceRows.h"

#include "Recordset.h"
#include "foundations/VBRuntime.h"

namespace ServiceRows {

bool ShownAtRunTime(const Recordset& row) {
    const QVariant varShow = row.Fields(QStringLiteral("ShowAtRunTime"));
    return !varShow.isNull() && VB::CBool(varShow);
}

} // namespace ServiceRows
