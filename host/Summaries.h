#pragma once

#include "EventPanel.h"

// Details of a service or a service item for the event panel, read from the
// database: what a user wants to see after a click while no editor is there.
namespace Summaries {

EventPanel::Rows ServiceRows(qint32 lngServiceID);
EventPanel::Rows ServiceItemRows(qint32 lngServiceItemID);

} // namespace Summaries
