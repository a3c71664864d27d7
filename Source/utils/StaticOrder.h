#pragma once

// The order in which objects with a constructor are built before main, across source files and whatever the order of
// linking: a smaller number first, and each is destroyed after all that were built later. What has no number comes
// last. Use: `const Str NAME STATIC_ORDER(STATIC_ORDER_NAMES)("...");`
#define STATIC_ORDER(order) __attribute__((init_priority(order)))

#define STATIC_ORDER_REGISTRIES 1000        // what others register in: outlives all of them
#define STATIC_ORDER_UNITS 1100             // the catalogue of units
#define STATIC_ORDER_UNSPECIFIED_UNIT 1200  // ElementURI::UNSPECIFIED_UNIT
#define STATIC_ORDER_NAMES 1300             // texts and tables that the universals are built from
#define STATIC_ORDER_UNIVERSALS 1400        // the catalogue of universal names
