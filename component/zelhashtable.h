// SPDX-License-Identifier: Apache-2.0
// ZelHashTable: a chained hash table with prime sizes, for tables that only grow.
#pragma once

#include <cstdint>
#include <deque>
#include <memory>

/// The first prime above n of a fixed table whose entries about double from 2 to 2147483659; the
/// last entry when n is not below it.
std::uint32_t zelNextPrime(std::uint32_t n);

/// `Hash` is a function object that gives a std::uint32_t. Values stay where they are until the
/// table is cleared. Entries come bucket by bucket, the one inserted last in front of its bucket;
/// growing turns the order within a bucket around. Not safe on two threads at once.
template <class K, class V, class Hash> class ZelHashTable {
    struct Node {
        std::uint32_t bucket;
        K key;
        V value;
        Node* next;
    };

public:
    /// A position in the order of the entries; good for as long as nothing is inserted.
    class Cursor {
    public:
        Cursor() = default;
        explicit operator bool() const { return node != nullptr; }
        const K& key() const { return node->key; }
        V& value() const { return node->value; }
        void advance() {
            *this = node->next ? Cursor(table, node->next) : table->from(node->bucket + 1);
        }

    private:
        friend class ZelHashTable;
        Cursor(const ZelHashTable* owner, Node* at) : table(owner), node(at) {}

        const ZelHashTable* table = nullptr;
        Node* node = nullptr;
    };

    /// Room for `expected` entries, and a load of up to 0.8, before the table grows.
    explicit ZelHashTable(std::uint32_t expected = 0)
        : bucketCount_(expected > 2 ? zelNextPrime(expected - 1) : 17) {}
    ZelHashTable(const ZelHashTable&) = delete;
    ZelHashTable& operator=(const ZelHashTable&) = delete;

    std::int32_t count() const { return static_cast<std::int32_t>(nodes.size()); }
    std::uint32_t bucketCount() const { return bucketCount_; }

    /// Null when the key is not there.
    V* find(const K& key) const {
        Node* node = buckets ? findIn(bucketOf(key), key) : nullptr;
        return node ? &node->value : nullptr;
    }
    /// Enters the key with a zero value when it is not there.
    V& findOrInsert(const K& key) {
        const std::uint32_t bucket = bucketOf(key);
        Node* node = buckets ? findIn(bucket, key) : nullptr;
        return node ? node->value : insert(bucket, key);
    }
    /// The first entry, false when there is none.
    Cursor first() const { return from(0); }
    /// Frees every entry and keeps the size.
    void clear() {
        buckets.reset();
        nodes.clear();
    }

private:
    std::uint32_t bucketOf(const K& key) const { return Hash()(key) % bucketCount_; }

    Node* findIn(std::uint32_t bucket, const K& key) const {
        Node* node = buckets[bucket];
        while (node && !(node->key == key)) node = node->next;
        return node;
    }

    V& insert(std::uint32_t bucket, const K& key) {
        if (!buckets) buckets = std::make_unique<Node*[]>(bucketCount_);
        Node& node = nodes.emplace_back(Node{bucket, key, V(), nullptr});
        link(buckets.get(), bucket, &node);
        if (count() >= bucketCount_ * 0.8) grow(zelNextPrime(bucketCount_));
        return node.value;
    }

    static void link(Node** heads, std::uint32_t bucket, Node* node) {
        node->bucket = bucket;
        node->next = heads[bucket];
        heads[bucket] = node;
    }

    void grow(std::uint32_t newCount) {
        if (newCount == bucketCount_) return;
        auto grown = std::make_unique<Node*[]>(newCount);
        for (std::uint32_t i = 0; i < bucketCount_; ++i) {
            for (Node *node = buckets[i], *next; node; node = next) {
                next = node->next;
                link(grown.get(), Hash()(node->key) % newCount, node);
            }
        }
        buckets = std::move(grown);
        bucketCount_ = newCount;
    }

    Cursor from(std::uint32_t bucket) const {
        for (; buckets && bucket < bucketCount_; ++bucket) {
            if (buckets[bucket]) return Cursor(this, buckets[bucket]);
        }
        return Cursor();
    }

    std::unique_ptr<Node*[]> buckets; ///< made at the first insertion
    std::uint32_t bucketCount_;
    std::deque<Node> nodes; ///< owns the nodes, in the order of insertion
};
