// SPDX-License-Identifier: Apache-2.0
/// @file
/// A chained hash table with prime sizes, for tables that only grow.
///
/// Chains are linked by numbers instead of pointers. The links are stored with the hashes, apart
/// from the entries, so that a search touches little memory and looks at an entry only when its
/// hash matches. The entries live in pages that never move.
#pragma once

#include "component/primesize.h"

#include <cstdint>
#include <cstring>
#include <memory>
#include <type_traits>
#include <utility>
#include <vector>

/// Maps keys to values. `Hash` is a function object that returns a std::uint32_t. Keys that are
/// plain bytes without padding are compared by their bytes, others by their operator.
///
/// Values keep their address until the table is cleared. Entries are enumerated bucket by bucket,
/// and within a bucket from the one inserted last; growing reverses the order within a bucket. A
/// table may be used by one thread at a time.
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
    /// A position in the enumeration. It stays valid until the next insertion.
    class Cursor {
    public:
        Cursor() = default;
        /// False after the last entry. The other operations need an entry.
        explicit operator bool() const { return link != 0; }
        /// The entry's key.
        const K& key() const { return table->at(link).key; }
        /// The entry's value.
        V& value() const { return table->at(link).value; }
        /// Moves to the next entry.
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

    /// Reserves buckets for `expected` entries. The table grows at a load of 0.8.
    explicit ZelHashTable(std::uint32_t expected = 0)
        : size(expected > 2 ? zelNextPrime(expected - 1) : 17) {}
    ZelHashTable(const ZelHashTable&) = delete;
    ZelHashTable& operator=(const ZelHashTable&) = delete;
    ~ZelHashTable() { clear(); }

    /// The number of entries.
    std::int32_t count() const { return static_cast<std::int32_t>(used()); }
    /// The number of buckets, a prime.
    std::uint32_t bucketCount() const { return size.prime(); }

    /// The value of a key; null when the key isn't there.
    V* find(const K& key) const {
        Entry* entry = buckets ? findEntry(Hash()(key), key) : nullptr;
        return entry ? &entry->value : nullptr;
    }
    /// The value of a key, inserted with a zero value when it isn't there.
    V& findOrInsert(const K& key) {
        const std::uint32_t hash = Hash()(key);
        Entry* entry = buckets ? findEntry(hash, key) : nullptr;
        return entry ? entry->value : insert(hash, key);
    }
    /// The first entry; false when the table is empty.
    Cursor first() const { return from(0); }
    /// Removes every entry and keeps the number of buckets.
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
