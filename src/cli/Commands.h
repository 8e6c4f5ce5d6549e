#pragma once

#include <QStringList>

// The command line of corvandel-cli: its commands, their options and help texts, and the dispatch.
namespace Commands {

// Runs the command the arguments name and returns the exit status: 0 on success, 1 when the
// command failed or found problems, 2 for a wrong call or a folder that cannot be read. Box
// commands run in the application's event loop.
int run(const QStringList &arguments);

} // namespace Commands
