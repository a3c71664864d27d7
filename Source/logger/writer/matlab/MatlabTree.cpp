#include "logger/writer/matlab/MatlabTree.h"

#include <algorithm>
#include <iterator>

#include "logger/writer/NameParts.h"
#include "logger/writer/matlab/MatlabForm.h"
#include "logger/writer/matlab/MatlabNames.h"

const char* const MatlabTree::VALUE = "value";
const char* const MatlabTree::UNITS = "units";
const char* const MatlabTree::TIME = "time";

static const Str MEMBERS[] = {MatlabTree::VALUE, MatlabTree::UNITS, MatlabTree::TIME};

static bool IsMember(const Str& identifier) {
    return std::find(std::begin(MEMBERS), std::end(MEMBERS), identifier) != std::end(MEMBERS);
}

MatlabTree::MatlabTree(Hdf5Group& root) : root_(new Node(root)) {}

// Neither a leaf already nor a parent with parts that a leaf's members are named like.
bool MatlabTree::Node::mayBeLeaf() const {
    return !isLeaf_ && std::none_of(std::begin(MEMBERS), std::end(MEMBERS),
                                    [this](const Str& member) { return byIdentifier_.get(member) != nullptr; });
}

bool MatlabTree::Node::isFree(const Str& identifier) const {
    return byIdentifier_.get(identifier) == nullptr && !(isLeaf_ && IsMember(identifier));
}

Hdf5Group& MatlabTree::addLeaf(const Str& name) {
    const NameParts parts(name);
    Node* node = root_.get();
    for (int i = 0; i < parts.groupCount(); ++i) node = &FindOrAdd(*node, parts.group(i), false);
    node = &FindOrAdd(*node, parts.last(), true);
    node->isLeaf_ = true;
    return node->group_;
}

MatlabTree::Node& MatlabTree::FindOrAdd(Node& parent, const Str& part, bool asLeaf) {
    Node* const known = parent.byPart_.get(part);
    return known != nullptr && (!asLeaf || known->mayBeLeaf()) ? *known : Add(parent, part);
}

// Numbers go on from the last one given for the identifier, so that many clashes stay quick.
MatlabTree::Node& MatlabTree::Add(Node& parent, const Str& part) {
    const Str identifier = MatlabNames::Identifier(part);
    Str free = identifier;
    Node* const owner = parent.byIdentifier_.get(identifier);
    unsigned int number = owner == nullptr ? 1 : owner->lastNumber_;
    while (!parent.isFree(free)) free = MatlabNames::Numbered(identifier, ++number);
    if (owner != nullptr) owner->lastNumber_ = number;
    Node* const node = new Node(parent.group_.addGroup(free));
    MatlabForm::MarkStruct(node->group_);
    parent.byIdentifier_.put(free, node, true);
    parent.byPart_.put(part, node, false);
    return *node;
}

void MatlabTree::finish() {
    for (unsigned int i = 0; i < root_->byIdentifier_.size(); ++i) Finish(*root_->byIdentifier_.getIndexed(i));
}

void MatlabTree::Finish(Node& node) {
    const size_t memberCount = node.isLeaf_ ? std::size(MEMBERS) : 0;
    const std::unique_ptr<Str[]> fields(new Str[memberCount + node.byIdentifier_.size()]);
    std::copy_n(MEMBERS, memberCount, fields.get());
    for (unsigned int i = 0; i < node.byIdentifier_.size(); ++i) {
        fields[memberCount + i] = node.byIdentifier_.getIndexedEntry(i)->getKey();
        Finish(*node.byIdentifier_.getIndexed(i));
    }
    node.group_.addAtt("MATLAB_fields", fields.get(), memberCount + node.byIdentifier_.size());
}
