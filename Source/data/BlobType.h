#pragma once

// What the elements of an array value are: integers and IEEE 754 numbers of so many bits, LE with the least significant
// byte first, BE with the most significant. The numbers are those of the log.
enum BlobType : int {
    NOT_BLOB = 0,
    BLOB_INT8 = 1,
    BLOB_INT16LE = 2,
    BLOB_INT16BE = 3,
    BLOB_INT32LE = 4,
    BLOB_INT32BE = 5,
    BLOB_INT64LE = 6,
    BLOB_INT64BE = 7,
    BLOB_UINT8 = 8,
    BLOB_UINT16LE = 9,
    BLOB_UINT16BE = 10,
    BLOB_UINT32LE = 11,
    BLOB_UINT32BE = 12,
    BLOB_UINT64LE = 13,
    BLOB_UINT64BE = 14,
    BLOB_FLOAT32LE = 15,
    BLOB_FLOAT32BE = 16,
    BLOB_FLOAT64LE = 17,
    BLOB_FLOAT64BE = 18,
    BLOB_TYPE_COUNT = 19,
};
