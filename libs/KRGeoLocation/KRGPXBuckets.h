#pragma once

#include <cstddef>
#include <vector>

/**
 * Numbers of things, sorted into a fixed count of buckets in linear time; a thing may be in several of them.
 *
 * In a bucket the things keep the order in which they were visited (counting sort: Knuth 1973, 5.2).
 */
class KRGPXBuckets
{
public:
    KRGPXBuckets() : m_starts(1, 0) { }
    /**
     * @param visitAll called twice with a function of a bucket and a thing, which it calls for each pair, both times
     * in the same order
     */
    template <typename VisitAll>
    KRGPXBuckets(int count, const VisitAll &visitAll) : m_starts(std::size_t(count) + 1, 0)
    {
        visitAll([this](int bucket, int) { ++m_starts[std::size_t(bucket) + 1]; });
        for (std::size_t bucket = 1; bucket < m_starts.size(); ++bucket)
            m_starts[bucket] += m_starts[bucket - 1];
        m_things.resize(m_starts.back());
        std::vector<std::size_t> ends(m_starts.begin(), m_starts.end() - 1);
        visitAll([&](int bucket, int thing) { m_things[ends[std::size_t(bucket)]++] = thing; });
    }

    int count() const { return int(m_starts.size()) - 1; }
    bool isEmpty(int bucket) const { return begin(bucket) == end(bucket); }
    const int *begin(int bucket) const { return m_things.data() + m_starts[std::size_t(bucket)]; }
    const int *end(int bucket) const { return m_things.data() + m_starts[std::size_t(bucket) + 1]; }

private:
    std::vector<std::size_t> m_starts; // where each bucket begins in m_things, and the end of the last one
    std::vector<int> m_things;
};
