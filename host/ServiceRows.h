#pragma once

class Recordset;

// The rules about the rows of a service that the host reads in more than one
// place.
namespace ServiceRows {

// Whether the recordset's current row of ServiceContents is shown in a run:
// its ShowAtRunTime is True. A row without a value (Null) is not shown.
bool ShownAtRunTime(const Recordset& row);

} // namespace ServiceRows
