#include "data/Syslog.h"

const char* Syslog::SeverityToString(Severity severity) {
    switch (severity) {
        case NONE:
            return "";
        case DEBUG:
            return "DEBUG";
        case INFO:
            return "INFO";
        case ERROR:
            return "ERROR";
        case IMPORTANT:
            return "IMPORTANT";
        case CRITICAL:
            return "CRITICAL";
        case FAULT:
            return "FAULT";
    }
    return "(undefined)";
}
