#pragma once

#include <QUuid>

// A fresh random (version 4) identifier. Drawn from the process-wide generator rather than the
// system's entropy source, because lists of 100,000 entries get one each on every load.
QUuid freshId();
