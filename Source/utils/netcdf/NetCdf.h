#pragma once

#include <memory>

#include "utils/FastMap.h"
#include "utils/FlexArray.h"
#include "utils/Str.h"

class DataValue;
class NetCdfBlock;

// What is known of one NetCDF file, or of one group in it: its dimensions, variables and attributes, each found by
// name, and how the last call of the library went. It owns them all; what it gives stays valid as long as it lives.
class NetCdf {
public:
    // The library's numbers.
    enum NetCdfType : int {
        NC_ABSENT_TYPE = 0,
        NC_BYTE_TYPE = 1,
        NC_CHAR_TYPE = 2,
        NC_SHORT_TYPE = 3,
        NC_INT_TYPE = 4,
        NC_FLOAT_TYPE = 5,
        NC_DOUBLE_TYPE = 6,
        NC_UBYTE_TYPE = 7,
        NC_USHORT_TYPE = 8,
        NC_UINT_TYPE = 9,
        NC_INT64_TYPE = 10,
        NC_UINT64_TYPE = 11,
        NC_STRING_TYPE = 12,
    };
    static const unsigned int CLASSIC_TYPES = 7;
    static const unsigned int NetCdfTypeSize_[CLASSIC_TYPES];  // bytes, of the types that the classic format has

    struct NetCdfDim {
        int dimId_;
        unsigned int dimSize_;  // 0: unlimited
    };
    struct NetCdfAtt {
        int attId_;  // its place among the attributes of its variable or file
        int varId_;  // the library's global id for attributes of the file
        Str name_;
        NetCdfType netCdfType_;
        unsigned int nelems_;  // the length, for a text
    };
    typedef FastMap<const Str, NetCdfAtt*> NetCdfAtts;

    static const int MAX_DIMS = 4;
    struct NetCdfVar {
        // Of a variable that is defined in the file or group ncId; the nDims ids are copied.
        NetCdfVar(int varId, int nDims, const int* dimIds, NetCdfType netCdfType, int ncId);
        ~NetCdfVar();

        // Gives the variable the value that its records are made of; borrowed, and changed only through hold.
        void setHolder(DataValue* holder);
        // Makes the value the current one, as the holder can have it. Null, and what is no value there, is missing:
        // NaN, the fill value of an integer type, the empty text. Without a holder everything is missing.
        void hold(const DataValue* value);
        void hold(double number);  // in the holder's unit

        // What the next record takes, unless it is missing: the holder, null when there is none.
        const DataValue* dataValue() const { return dataValue_; }
        double number() const { return number_; }      // the same in its unit; NaN: missing, or no number
        bool isMissing() const { return isMissing_; }  // always without a holder

        int varId_;
        int nDims_;                      // 1 to MAX_DIMS
        std::unique_ptr<int[]> dimIds_;  // nDims_ of them
        NetCdfAtts atts_;                // owned
        bool isRecord_ = false;          // written once per record
        NetCdfType netCdfType_;
        unsigned int varIndex_ = 0;           // in the order of definition
        size_t numRecs_ = 0;                  // records written, those that are still gathered included
        int ncId_;                            // of the file or group that has it
        std::unique_ptr<NetCdfBlock> block_;  // the gathered records of a record variable

    private:
        void readHolder();

        DataValue* dataValue_ = nullptr;  // the holder
        bool isMissing_ = true;
        double number_;
    };

    virtual ~NetCdf() {}
    NetCdf(const NetCdf&) = delete;
    NetCdf& operator=(const NetCdf&) = delete;

    // Each is null when there is none of that name.
    NetCdfDim* findDim(const Str& name) const { return dims_.get(name); }
    NetCdfVar* findVar(const Str& name) const { return vars_.get(name); }
    NetCdfAtt* findAtt(const Str& name) const { return gatts_.get(name); }
    NetCdfAtt* findAtt(const NetCdfVar& var, const Str& name) const { return var.atts_.get(name); }

    FlexArray<NetCdfDim*>& getDimArray() { return dimArray_; }   // in the order of definition
    NetCdfAtts& getGlobalAtts() { return gatts_; }               // of the file or group itself
    FastMap<const Str, NetCdfVar*>& getVars() { return vars_; }  // by name

    const char* status() const;  // what the library says of its last status; a text of the library

protected:
    NetCdf() : dimArray_(true), varArray_(true) {}

    int status_ = 0;                  // of the last call of the library; 0: success
    int ncId_ = -1;                   // -1: no file
    FlexArray<NetCdfDim*> dimArray_;  // owned, in the order of definition
    FastMap<const Str, NetCdfDim*> dims_;
    NetCdfAtts gatts_;                // owned
    FlexArray<NetCdfVar*> varArray_;  // owned, in the order of definition
    FastMap<const Str, NetCdfVar*> vars_;
};
