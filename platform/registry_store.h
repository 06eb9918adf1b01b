// Where the registry's keys and values are kept: a text file of the user, or memory alone for tests.
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <functional>

#include "platform/registry_tree.h"

namespace kelu {

class RegistryStore {
 public:
    using Change = std::function<bool(RegistryTree&)>;

    virtual ~RegistryStore() = default;

    /// The keys and values as they stand now; valid until the next call of the store.
    virtual const RegistryTree& Tree() = 0;
    /// Makes a change on the newest state and keeps it. A change that answers false must have left the tree alone.
    /// False when the change says so or could not be kept; the store is then as before. Inside a batch it is kept at
    /// the batch's end.
    virtual bool Apply(const Change& change) = 0;

    /// Why the last change or batch could not be kept; empty when it was, or said so itself.
    virtual QString Failure() const { return {}; }

    /// Between these two calls no other process can write, and changes are kept together. Failures show in EndBatch.
    virtual bool BeginBatch() = 0;
    virtual bool EndBatch() = 0;
};

/// Nothing is kept beyond the object's life.
class MemoryRegistryStore : public RegistryStore {
 public:
    const RegistryTree& Tree() override { return tree_; }
    bool Apply(const Change& change) override { return change(tree_); }
    bool BeginBatch() override { return true; }
    bool EndBatch() override { return true; }

 private:
    RegistryTree tree_;
};

}  // namespace kelu
