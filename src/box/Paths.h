#pragma once

#include <QString>

// The per-user folders of the program. The XDG variables are read at every call, so that a test
// can redirect them after start.
namespace Paths {

// $XDG_DATA_HOME/Corvandel (default ~/.local/share/Corvandel): work folders, backups, picons.
QString dataDir();
// $XDG_STATE_HOME/Corvandel (default ~/.local/state/Corvandel): the box log.
QString stateDir();

} // namespace Paths
