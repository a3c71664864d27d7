#include "logger/writer/ArrayLogWriter.h"

#include <algorithm>
#include <cstring>
#include <numeric>

ArrayLogWriter::ArrayLogWriter(Order order, int varCount, char** varList, char** unitList, int attCount, char** attList)
    : FilterLogWriter(nullptr, varCount, varList, unitList, false, attCount, attList),
      owners_(new int[requestCount()]),
      order_(new int[requestCount()]) {
    for (int request = 0; request < requestCount(); ++request) owners_[request] = findOwner(request);
    std::iota(&order_[0], &order_[requestCount()], 0);
    if (order == AS_LISTED) return;
    std::stable_sort(&order_[0], &order_[requestCount()],
                     [this](int a, int b) { return strlen(nameOf(a)) < strlen(nameOf(b)); });
}

int ArrayLogWriter::findOwner(int request) const {
    if (isAttribute(request) && variables_.indexOfName(nameOf(request)) >= 0) return -1;
    return request - positionOf(request) + selectionOf(request).firstIndexOfName(positionOf(request));
}

bool ArrayLogWriter::placeRequests() {
    if (!watch_.hasChanged()) return false;
    watch_.look();
    bool isComplete = true;
    for (int i = 0; i < requestCount(); ++i) {
        const int request = order_[i];
        if (ownerOf(request) == request) isComplete = place(request) && isComplete;
    }
    return isComplete;
}

unsigned int ArrayLogWriter::writeData(const DataEntry* entry, int varIndex, const Unit*) {
    const int owner = ownerOf(varIndex);
    return entry == nullptr || owner < 0 ? 0 : addSample(*entry, owner);
}

unsigned int ArrayLogWriter::writeAtt(const DataEntry* entry, int attIndex, const Unit* unit) {
    return writeData(entry, variables_.count() + attIndex, unit);
}

void ArrayLogWriter::resetInputs() {
    FilterLogWriter::resetInputs();
    watch_.reset();
}
