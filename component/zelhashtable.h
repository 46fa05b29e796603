// SPDX-License-Identifier: Apache-2.0
// ZelHashTable: a chained hash table with prime sizes, for tables that only grow.
//
// Chains are linked by numbers, not pointers, and stand beside the hashes, apart from the entries:
// a search looks at an entry only when the hash is right, and what it walks through is small. The
// entries lie in pages that never move.
#pragma once

#include "component/primesize.h"

#include <cstdint>
#include <cstring>
#include <memory>
#include <type_traits>
#include <utility>
#include <vector>

/// `Hash` is a function object that gives a std::uint32_t. Keys that are plain bytes without
/// padding are equal when their bytes are, others by their operator. Values stay where they are
/// until the table is cleared. Entries come bucket by bucket, the one inserted last in front of its
/// bucket; growing turns the order within a bucket around. Not safe on two threads at once.
template <class K, class V, class Hash> class ZelHashTable {
    /// The number of an entry from 1 on; 0 is none.
    using Link = std::uint32_t;

    struct Entry {
        K key;
        V value;
    };

    /// What a search sees of an entry.
    struct Place {
        std::uint32_t hash;
        Link next;
    };

public:
    /// A position in the order of the entries; good for as long as nothing is inserted.
    class Cursor {
    public:
        Cursor() = default;
        explicit operator bool() const { return link != 0; }
        const K& key() const { return table->at(link).key; }
        V& value() const { return table->at(link).value; }
        void advance() {
            const Place& place = table->placeOf(link);
            *this = place.next ? Cursor(table, place.next)
                               : table->from(table->size.remainder(place.hash) + 1);
        }

    private:
        friend class ZelHashTable;
        Cursor(const ZelHashTable* owner, Link number) : table(owner), link(number) {}

        const ZelHashTable* table = nullptr;
        Link link = 0;
    };

    /// Room for `expected` entries, and a load of up to 0.8, before the table grows.
    explicit ZelHashTable(std::uint32_t expected = 0)
        : size(expected > 2 ? zelNextPrime(expected - 1) : 17) {}
    ZelHashTable(const ZelHashTable&) = delete;
    ZelHashTable& operator=(const ZelHashTable&) = delete;
    ~ZelHashTable() { clear(); }

    std::int32_t count() const { return static_cast<std::int32_t>(used()); }
    std::uint32_t bucketCount() const { return size.prime(); }

    /// Null when the key is not there.
    V* find(const K& key) const {
        Entry* entry = buckets ? findEntry(Hash()(key), key) : nullptr;
        return entry ? &entry->value : nullptr;
    }
    /// Enters the key with a zero value when it is not there.
    V& findOrInsert(const K& key) {
        const std::uint32_t hash = Hash()(key);
        Entry* entry = buckets ? findEntry(hash, key) : nullptr;
        return entry ? entry->value : insert(hash, key);
    }
    /// The first entry, false when there is none.
    Cursor first() const { return from(0); }
    /// Frees every entry and keeps the size.
    void clear() {
        buckets.reset();
        for (std::uint32_t i = used(); i > 0; --i) std::destroy_at(&at(i));
        pages.clear();
        places.clear();
    }

private:
    static constexpr std::uint32_t pageSize = 64;
    struct Page {
        alignas(Entry) unsigned char room[pageSize * sizeof(Entry)];
    };

    std::uint32_t used() const { return static_cast<std::uint32_t>(places.size()); }
    Place& placeOf(Link link) { return places[link - 1]; }
    const Place& placeOf(Link link) const { return places[link - 1]; }
    Entry& at(Link link) const {
        auto* entries = reinterpret_cast<Entry*>(pages[(link - 1) / pageSize]->room);
        return entries[(link - 1) % pageSize];
    }
    /// Before anything is entered, so that nothing can fail afterwards.
    void makeRoomForOne() {
        if (!buckets) buckets = std::make_unique<Link[]>(bucketCount());
        if (places.size() == places.capacity()) places.reserve(places.size() * 2 + pageSize);
        if (used() == pages.size() * pageSize)
            pages.push_back(std::make_unique_for_overwrite<Page>());
    }

    static bool areEqual(const K& a, const K& b) {
        if constexpr (std::has_unique_object_representations_v<K>)
            return std::memcmp(&a, &b, sizeof(K)) == 0;
        else
            return a == b;
    }

    Entry* findEntry(std::uint32_t hash, const K& key) const {
        for (Link link = buckets[size.remainder(hash)]; link; link = placeOf(link).next)
            if (placeOf(link).hash == hash && areEqual(at(link).key, key)) return &at(link);
        return nullptr;
    }

    V& insert(std::uint32_t hash, const K& key) {
        makeRoomForOne();
        Entry& entry = *std::construct_at(&at(used() + 1), Entry{key, V()});
        places.push_back({hash, 0});
        link(buckets.get(), size, used());
        if (count() >= bucketCount() * 0.8) grow(zelNextPrime(bucketCount()));
        return entry.value;
    }

    void link(Link* heads, const PrimeSize& headCount, Link number) {
        Place& place = placeOf(number);
        place.next = std::exchange(heads[headCount.remainder(place.hash)], number);
    }

    void grow(std::uint32_t newCount) {
        if (newCount == bucketCount()) return;
        const PrimeSize newSize(newCount);
        auto grown = std::make_unique<Link[]>(newCount);
        for (std::uint32_t i = 0; i < bucketCount(); ++i) {
            for (Link number = buckets[i], next; number; number = next) {
                next = placeOf(number).next;
                link(grown.get(), newSize, number);
            }
        }
        buckets = std::move(grown);
        size = newSize;
    }

    Cursor from(std::uint32_t bucket) const {
        for (; buckets && bucket < bucketCount(); ++bucket) {
            if (buckets[bucket]) return Cursor(this, buckets[bucket]);
        }
        return Cursor();
    }

    PrimeSize size;
    std::unique_ptr<Link[]> buckets; ///< the first of each chain; made at the first insertion
    std::vector<Place> places;       ///< of the entries, from the first on
    std::vector<std::unique_ptr<Page>> pages;
};
