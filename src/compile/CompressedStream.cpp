#include "compile/CompressedStream.h"

#include <algorithm>
#include <system_error>
#include <utility>

#include "compile/Bytes.h"

namespace compile {

CompressedStream::CompressedStream(unsigned jobs, std::stop_token stop) : stop_(std::move(stop)) {
    const unsigned wanted = jobs > 0 ? jobs : std::max(1U, std::thread::hardware_concurrency());
    for (unsigned i = 1; i < std::min(wanted, mostJobs); ++i) {
        try {
            workers_.emplace_back([this](const std::stop_token& end) { workAsLongAsItGoes(end); });
        } catch (const std::system_error&) {
            return; // the others do it
        }
    }
}

CompressedStream::~CompressedStream() {
    for (std::jthread& worker : workers_) {
        worker.request_stop();
    }
}

void CompressedStream::append(std::string_view bytes) {
    size_ += bytes.size();
    while (!bytes.empty()) {
        const std::size_t count = std::min(bytes.size(), intervalSize - filling_.size());
        filling_ += bytes.substr(0, count);
        bytes.remove_prefix(count);
        if (filling_.size() == intervalSize) {
            const std::scoped_lock lock(mutex_);
            intervals_.push_back({std::exchange(filling_, {}), {}});
            changed_.notify_one();
        }
    }
}

/// Readers unpack whole frames, so the last one is filled up.
void CompressedStream::close() {
    const std::size_t frames = (filling_.size() + frameSize - 1) / frameSize;
    filling_.resize(frames * frameSize);
    const std::scoped_lock lock(mutex_);
    if (frames > 0) {
        intervals_.push_back({std::exchange(filling_, {}), {}});
    }
    closed_ = true;
    changed_.notify_all();
}

/// The next interval to compress, under the lock; null when there is none.
CompressedStream::Interval* CompressedStream::take() {
    const bool goesOn = !failure_ && !stop_.stop_requested();
    return goesOn && taken_ < intervals_.size() ? &intervals_[taken_++] : nullptr;
}

void CompressedStream::compress(LzxEncoder& encoder, Interval& interval) {
    interval.compressed = encoder.encode(interval.bytes);
    std::string().swap(interval.bytes);
    const std::scoped_lock lock(mutex_);
    ++done_;
    changed_.notify_all();
}

void CompressedStream::work(const std::stop_token& end) {
    LzxEncoder encoder;
    while (true) {
        Interval* interval = nullptr;
        {
            std::unique_lock lock(mutex_);
            changed_.wait(lock, end, [&] {
                return (interval = take()) != nullptr || closed_ || stop_.stop_requested();
            });
        }
        if (interval == nullptr || end.stop_requested()) {
            return;
        }
        compress(encoder, *interval);
    }
}

void CompressedStream::workAsLongAsItGoes(const std::stop_token& end) noexcept {
    try {
        work(end);
    } catch (...) {
        const std::scoped_lock lock(mutex_);
        failure_ = std::current_exception();
        changed_.notify_all();
    }
}

bool CompressedStream::finish(const Progress& progress) {
    close();
    LzxEncoder encoder;
    std::unique_lock lock(mutex_);
    while (done_ < intervals_.size()) {
        if (Interval* interval = take()) {
            lock.unlock();
            compress(encoder, *interval);
            lock.lock();
        } else if (failure_) {
            std::rethrow_exception(failure_);
        } else if (stop_.stop_requested()) {
            return false;
        } else {
            changed_.wait(lock);
        }
        const std::uint64_t done = std::min<std::uint64_t>(done_ * intervalSize, size_);
        lock.unlock();
        if (progress) {
            progress(done, size_);
        }
        lock.lock();
    }
    return !stop_.stop_requested();
}

std::uint64_t CompressedStream::compressedSize() const {
    std::uint64_t size = 0;
    for (const Interval& interval : intervals_) {
        size += interval.compressed.bytes.size();
    }
    return size;
}

std::string CompressedStream::resetTable() const {
    constexpr std::uint64_t headerSize = 0x28;
    constexpr std::uint64_t entrySize = 8;
    const std::uint64_t frames = (size_ + frameSize - 1) / frameSize;
    std::string table;
    append32(table, 2); // its version
    append32(table, frames);
    append32(table, entrySize);
    append32(table, headerSize);
    append64(table, size_);
    append64(table, compressedSize());
    append64(table, frameSize);
    std::uint64_t offset = 0;
    for (std::uint64_t frame = 0; frame < frames; ++frame) {
        const CompressedInterval& interval = intervals_[frame / framesPerInterval].compressed;
        const bool isFirst = frame % framesPerInterval == 0;
        append64(table, isFirst ? offset : offset + interval.secondFrame);
        offset += isFirst ? 0 : interval.bytes.size();
    }
    return table;
}

void CompressedStream::moveTo(std::string& bytes) {
    for (Interval& interval : intervals_) {
        bytes += interval.compressed.bytes;
        std::string().swap(interval.compressed.bytes);
    }
}

} // namespace compile
