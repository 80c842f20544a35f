// QCustomPlot, whose header needs Qt's lower-case keywords; here they are ordinary names (QT_NO_KEYWORDS).
#pragma once

#include <QtWidgets>

#define signals Q_SIGNALS
#define slots Q_SLOTS
#define emit Q_EMIT
#define foreach Q_FOREACH
#include <qcustomplot.h>
#undef signals
#undef slots
#undef emit
#undef foreach
