#include "data/NamedURIs.h"

#include "units/Units.h"

// Built with no order of its own, hence after every universal.
ConfigURI ConfigURI::NO_CONFIG_URI("", "", Units::NONE);
