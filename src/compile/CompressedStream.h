#pragma once

#include <condition_variable>
#include <cstdint>
#include <deque>
#include <exception>
#include <functional>
#include <mutex>
#include <stop_token>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "compile/LzxEncoder.h"
#include "compile/LzxFormat.h"

namespace compile {

/// Bytes that are done, and how many there are in all.
using Progress = std::function<void(std::uint64_t done, std::uint64_t total)>;

/// The compressed section. Every interval of it can be unpacked alone, so all are compressed
/// independently, while more bytes come in; the result is the same for any number of threads.
class CompressedStream {
public:
    static constexpr unsigned mostJobs = 64; ///< each takes memory of its own

    /// `jobs` counts the caller's thread too, which helps in finish(); 0: one a processor.
    CompressedStream(unsigned jobs, std::stop_token stop);
    ~CompressedStream();
    CompressedStream(const CompressedStream&) = delete;
    CompressedStream& operator=(const CompressedStream&) = delete;

    void append(std::string_view bytes);
    std::uint64_t size() const { return size_; } ///< of what was appended

    /// Compresses what is left; false when it was stopped. The rest can be asked for then. Throws
    /// what a thread threw, as when there was no memory for it.
    bool finish(const Progress& progress);

    std::uint64_t compressedSize() const;
    std::string resetTable() const; ///< where the frames begin, as readers want it

    /// Appends the compressed bytes and frees their memory, so that it is needed once only.
    void moveTo(std::string& bytes);

private:
    struct Interval {
        std::string bytes; ///< empty when it is compressed
        CompressedInterval compressed;
    };

    void close();
    Interval* take();
    void compress(LzxEncoder& encoder, Interval& interval);
    void work(const std::stop_token& end);
    void workAsLongAsItGoes(const std::stop_token& end) noexcept;

    std::stop_token stop_;
    std::uint64_t size_ = 0;
    std::string filling_; ///< the last interval, not yet full
    std::mutex mutex_;    ///< of all that follows
    std::condition_variable_any changed_;
    std::deque<Interval> intervals_; ///< in order; their places do not change
    std::size_t taken_ = 0;
    std::size_t done_ = 0;
    bool closed_ = false;
    std::exception_ptr failure_;        ///< of a worker; nothing more is begun then
    std::vector<std::jthread> workers_; ///< the last member: they end first
};

} // namespace compile
