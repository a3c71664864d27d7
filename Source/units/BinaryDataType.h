#pragma once

// How a value is stored in the log, and its code there. The names give the bytes; reduced types keep only the most
// significant ones.
enum BinaryDataType : int {
    NO_TYPE = -1,  // not known, or: the unit's own default
    MULTIVALUE = 0,
    STRVALUE = 0,  // a two-byte length, then that many bytes
    UCHAR1 = 2,
    SHORT2 = 5,
    USHORT2 = 6,  // read back sign-extended, as the vehicle does
    FLOAT2 = 7,
    FLOAT3 = 11,  // of a unit that asks for no type
    INT4 = 13,
    FLOAT4 = 15,
    DOUBLE8 = 31,
    DOUBLE4 = 47,  // rounded to a float
    DOUBLE6 = 55,
};
