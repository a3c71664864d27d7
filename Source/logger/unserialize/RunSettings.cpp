#include "logger/unserialize/RunSettings.h"

void RunSettings::complain(const Str& text) {
    for (unsigned int i = 0; i < complaints_.size(); ++i) {
        if (*complaints_.at(i) == text) return;
    }
    complaints_.push(new Str(text));
}
