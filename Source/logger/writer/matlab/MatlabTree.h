#pragma once

#include <memory>

#include "utils/FastMap.h"
#include "utils/Str.h"
#include "utils/hdf5/Hdf5Group.h"

// The groups of a file in Matlab's layout, where each is a struct: one for each part of a variable's name, the last one
// being the variable's own, its leaf.
class MatlabTree {
public:
    // The members of a leaf.
    static const char* const VALUE;
    static const char* const UNITS;
    static const char* const TIME;

    explicit MatlabTree(Hdf5Group& root);  // borrowed

    // A new leaf for the name, whose parts end at '.', ':' and '/'. Parts become identifiers; one that another name has
    // taken gets a number. A leaf may have other variables below it. The group belongs to the file.
    Hdf5Group& addLeaf(const Str& name);
    // Gives every group the list of its members, leaf's members first; readers want it. After the last leaf.
    void finish();

private:
    struct Node {
        explicit Node(Hdf5Group& group) : group_(group) {}
        bool mayBeLeaf() const;
        bool isFree(const Str& identifier) const;

        Hdf5Group& group_;
        bool isLeaf_ = false;
        unsigned int lastNumber_ = 1;       // given to another part for which the identifier was taken
        FastMap<Str, Node*> byPart_;        // the first one made for the part
        FastMap<Str, Node*> byIdentifier_;  // owned
    };

    static Node& FindOrAdd(Node& parent, const Str& part, bool asLeaf);
    static void Finish(Node& node);
    static Node& Add(Node& parent, const Str& part);

    const std::unique_ptr<Node> root_;
};
