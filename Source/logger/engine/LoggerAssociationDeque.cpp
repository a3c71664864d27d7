#include "logger/engine/LoggerAssociationDeque.h"

void LoggerAssociationDeque::remove(const LogWriter* writer) {
    for (unsigned int i = 0; i < count(); ++i) {
        if (at(i)->getWriter() != writer) continue;
        delete pop(static_cast<int>(i));
        return;
    }
}
