// SPDX-License-Identifier: Apache-2.0
// ZelHashTable: a chained hash table with prime sizes, for tables that only grow.
//
// Chains are linked by numbers, not pointers, so that the buckets of a large table still fit a near
// cache; the nodes lie in pages that never move.
#pragma once

#include "component/primesize.h"

#include <cstdint>
#include <cstring>
#include <memory>
#include <type_traits>
#include <vector>

/// `Hash` is a function object that gives a std::uint32_t. Keys that are plain bytes without
/// padding are equal when their bytes are, others by their operator. Values stay where they are
/// until the table is cleared. Entries come bucket by bucket, the one inserted last in front of its
/// bucket; growing turns the order within a bucket around. Not safe on two threads at once.
template <class K, class V, class Hash> class ZelHashTable {
    /// The number of a node from 1 on; 0 is none.
    using Link = std::uint32_t;

    struct Node {
        K key;
        V value;
        Link next;
        std::uint32_t bucket;
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
            *this =
                node->next ? Cursor(table, &table->at(node->next)) : table->from(node->bucket + 1);
        }

    private:
        friend class ZelHashTable;
        Cursor(const ZelHashTable* owner, Node* position) : table(owner), node(position) {}

        const ZelHashTable* table = nullptr;
        Node* node = nullptr;
    };

    /// Room for `expected` entries, and a load of up to 0.8, before the table grows.
    explicit ZelHashTable(std::uint32_t expected = 0)
        : size(expected > 2 ? zelNextPrime(expected - 1) : 17) {}
    ZelHashTable(const ZelHashTable&) = delete;
    ZelHashTable& operator=(const ZelHashTable&) = delete;
    ~ZelHashTable() { clear(); }

    std::int32_t count() const { return static_cast<std::int32_t>(used); }
    std::uint32_t bucketCount() const { return size.prime(); }

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
        for (; used > 0; --used) std::destroy_at(&at(used));
        pages.clear();
    }

private:
    static constexpr std::uint32_t pageSize = 64;
    /// Room for nodes, of which small ones don't lie across lines of the cache.
    struct alignas(64) Page {
        unsigned char room[pageSize * sizeof(Node)];
    };

    std::uint32_t bucketOf(const K& key) const { return size.remainder(Hash()(key)); }

    Node& at(Link link) const {
        auto* nodes = reinterpret_cast<Node*>(pages[(link - 1) / pageSize]->room);
        return nodes[(link - 1) % pageSize];
    }

    static bool areEqual(const K& a, const K& b) {
        if constexpr (std::has_unique_object_representations_v<K>)
            return std::memcmp(&a, &b, sizeof(K)) == 0;
        else
            return a == b;
    }

    Node* findIn(std::uint32_t bucket, const K& key) const {
        for (Link link = buckets[bucket]; link;) {
            Node& node = at(link);
            if (areEqual(node.key, key)) return &node;
            link = node.next;
        }
        return nullptr;
    }

    V& insert(std::uint32_t bucket, const K& key) {
        if (!buckets) buckets = std::make_unique<Link[]>(bucketCount());
        if (used == pages.size() * pageSize)
            pages.push_back(std::make_unique_for_overwrite<Page>());
        Node& node = *std::construct_at(&at(used + 1), Node{key, V(), 0, 0});
        link(buckets.get(), bucket, ++used);
        if (count() >= bucketCount() * 0.8) grow(zelNextPrime(bucketCount()));
        return node.value;
    }

    void link(Link* heads, std::uint32_t bucket, Link number) {
        Node& node = at(number);
        node.bucket = bucket;
        node.next = heads[bucket];
        heads[bucket] = number;
    }

    void grow(std::uint32_t newCount) {
        if (newCount == bucketCount()) return;
        const PrimeSize newSize(newCount);
        auto grown = std::make_unique<Link[]>(newCount);
        for (std::uint32_t i = 0; i < bucketCount(); ++i) {
            for (Link number = buckets[i], next; number; number = next) {
                next = at(number).next;
                link(grown.get(), newSize.remainder(Hash()(at(number).key)), number);
            }
        }
        buckets = std::move(grown);
        size = newSize;
    }

    Cursor from(std::uint32_t bucket) const {
        for (; buckets && bucket < bucketCount(); ++bucket) {
            if (buckets[bucket]) return Cursor(this, &at(buckets[bucket]));
        }
        return Cursor();
    }

    PrimeSize size;
    std::unique_ptr<Link[]> buckets; ///< the first of each chain; made at the first insertion
    std::vector<std::unique_ptr<Page>> pages;
    std::uint32_t used = 0; ///< nodes 1 to this one exist
};
