#pragma once

#include <atomic>
#include <ios>
#include <memory>
#include <mutex>
#include <ostream>
#include <streambuf>
#include <string>
#include <thread>
#include <utility>
#include <vector>

// Takes the place of a standard stream's buffer and hands what is written to
// a callback. The stream gets its buffer back when the redirector is
// destroyed.
//
// On the thread that made the redirector (the UI thread) blocks go out at
// once and single characters line by line. No put area is set, so every
// character written singly reaches overflow() and every block xsputn(). A
// block is passed on at once, without flushing the characters collected
// before it: characters put one at a time show up after the next block, at
// the next line feed. That order is kept as it is. (The GNU library formats
// a number into one block, so numbers arrive as blocks; put() and
// std::endl's line feed are what come singly.)
//
// A redirector that is let go while other threads may still be writing is
// detached and retired rather than freed (see Retire): a writer that had
// already fetched the stream's buffer may enter it after the stream got its
// old buffer back, and must find it there.
//
// Giving a stream another buffer while other threads write to it is itself
// a race: the stream's buffer pointer is a plain member, read by every
// writer. So once another thread has written through a redirector, pausing
// it (see pause) no longer hands the stream its old buffer: the redirector
// stays in place and passes what is written on to that buffer, and resume()
// takes capture up again without touching the stream. Only a redirector no
// other thread has used gives the buffer back at once, and detach(), on the
// owning thread, always does.
//
// Any other thread gathers what it writes, blocks and characters alike, in a
// line of its own and hands over whole lines only: "t" << 3 << '\n' is one
// line, never three pieces, however many threads write at once. A line that
// has no line feed yet goes out when its thread ends, unless the redirector
// is gone by then.
template <class Char>
class StdStreamRedirector : public std::basic_streambuf<Char>
{
public:
    using Callback = void (*)(const Char* text, std::streamsize count, void* data);
    using Traits = typename std::basic_streambuf<Char>::traits_type;
    using IntType = typename std::basic_streambuf<Char>::int_type;

    StdStreamRedirector(std::basic_ostream<Char>& stream, Callback callback, void* data)
        : m_stream(stream)
        , m_previous(stream.rdbuf())
        , m_owner(std::this_thread::get_id())
        , m_sink(std::make_shared<Sink>(callback, data))
    {
        m_stream.rdbuf(this);
    }

    // Once the sink is closed no thread calls back any more, not even one
    // that ends later with half a line: the callback's data may be gone.
    ~StdStreamRedirector() override { detach(); }

    // Gives the stream its buffer back and stops calling back; a callback
    // running on another thread has returned when this returns. What is
    // written here afterwards goes on to the previous buffer.
    void detach()
    {
        if (m_restored)
            return;
        m_restored = true;
        m_detached.store(true, std::memory_order_release);
        m_stream.rdbuf(m_previous);
        m_sink->close();
        m_pending.clear();
        m_pending.shrink_to_fit();
        m_block.clear();
        m_block.shrink_to_fit();
    }

    // The deleter for a redirector that other threads may be inside: it is
    // detached, then kept for the rest of the process instead of freed. A
    // profile switch costs one such object, a few dozen bytes, which is the
    // price of never pulling a buffer out from under a writer.
    struct Retire
    {
        void operator()(StdStreamRedirector* redirector) const
        {
            if (!redirector)
                return;
            redirector->detach();
            static std::mutex mutex;
            // Never freed, so that not even the end of the process frees a
            // redirector a detached thread is writing through.
            static auto* retired = new std::vector<StdStreamRedirector*>;
            const std::lock_guard<std::mutex> lock(mutex);
            retired->push_back(redirector);
        }
    };

    // Stops capturing. What is written afterwards goes on to the previous
    // buffer, with the redirector left in the stream when other threads have
    // written through it; true when it was left there, to be resumed.
    bool pause()
    {
        if (m_restored)
            return false;
        if (!m_sharedWithOthers.load(std::memory_order_acquire)) {
            detach();
            return false;
        }
        m_detached.store(true, std::memory_order_release);
        m_sink->close();
        return true;
    }

    // Captures again what a pause passed on, if the stream still writes
    // through this redirector; false when it has been given another buffer
    // meanwhile (or this one was detached), and a new redirector is needed.
    bool resume()
    {
        if (m_restored || m_stream.rdbuf() != this)
            return false;
        m_pending.clear();
        m_sink->open();
        m_detached.store(false, std::memory_order_release);
        return true;
    }

    StdStreamRedirector(const StdStreamRedirector&) = delete;
    StdStreamRedirector& operator=(const StdStreamRedirector&) = delete;

    std::basic_streambuf<Char>* previousBuffer() const { return m_previous; }

protected:
    // A line feed delivers the pending line, which may be empty, with a count
    // of 1 whatever its length: callbacks read up to the terminating NUL.
    IntType overflow(IntType c) override
    {
        if (Traits::eq_int_type(c, Traits::eof()))
            return Traits::not_eof(c);
        if (m_detached.load(std::memory_order_acquire))
            return m_previous ? m_previous->sputc(Traits::to_char_type(c)) : Traits::eof();
        const Char character = Traits::to_char_type(c);
        if (std::this_thread::get_id() != m_owner) {
            markShared();
            gather(&character, 1);
            return c;
        }
        if (character == Char('\n')) {
            m_sink->callOwner(m_pending.c_str(), 1);
            m_pending.clear();
        } else {
            m_pending += character;
        }
        return c;
    }

    // A block handed to a stream (std::string, write()) need not end in a
    // NUL; callbacks read up to one, so the block goes out as a terminated
    // copy.
    std::streamsize xsputn(const Char* text, std::streamsize count) override
    {
        if (count <= 0)
            return count;
        if (m_detached.load(std::memory_order_acquire))
            return m_previous ? m_previous->sputn(text, count) : 0;
        if (std::this_thread::get_id() != m_owner) {
            markShared();
            gather(text, count);
            return count;
        }
        m_block.assign(text, size_t(count));
        m_sink->callOwner(m_block.c_str(), count);
        return count;
    }

private:
    using String = std::basic_string<Char>;

    // What the writing threads share: the callback, and whether it may still
    // be called. Threads that end after the redirector hold on to it.
    class Sink
    {
    public:
        Sink(Callback callback, void* data)
            : m_callback(callback)
            , m_saved(callback)
            , m_data(data)
        {}

        // The owning thread is the one that closes, so it needs no lock.
        void callOwner(const Char* text, std::streamsize count) const
        {
            if (m_callback)
                m_callback(text, count, m_data);
        }

        // The lock keeps a line that is being handed over and the closing
        // apart, so no callback runs once the redirector has gone.
        void callOther(const String& line)
        {
            const std::lock_guard<std::mutex> lock(m_mutex);
            if (m_callback)
                m_callback(line.c_str(), std::streamsize(line.size()), m_data);
        }

        void close()
        {
            const std::lock_guard<std::mutex> lock(m_mutex);
            m_callback = nullptr;
        }

        void open()
        {
            const std::lock_guard<std::mutex> lock(m_mutex);
            m_callback = m_saved;
        }

        bool closed()
        {
            const std::lock_guard<std::mutex> lock(m_mutex);
            return !m_callback;
        }

    private:
        std::mutex m_mutex;
        Callback m_callback;
        const Callback m_saved;
        void* m_data;
    };

    // The lines one thread has begun, one per redirector it writes to (a
    // thread may have half a line on std::cout and another on std::cerr).
    // What is left when the thread ends is handed over then.
    class ThreadLines
    {
    public:
        ThreadLines() = default;
        ThreadLines(const ThreadLines&) = delete;
        ThreadLines& operator=(const ThreadLines&) = delete;
        ~ThreadLines()
        {
            for (auto& entry : m_lines)
                if (!entry.second.empty())
                    entry.first->callOther(entry.second);
        }

        String& lineFor(const std::shared_ptr<Sink>& sink)
        {
            for (auto& entry : m_lines)
                if (entry.first == sink)
                    return entry.second;
            // A thread that outlives several consoles drops what it began
            // for those that are gone rather than piling it up.
            for (size_t i = m_lines.size(); i-- > 0;)
                if (m_lines[i].first->closed())
                    m_lines.erase(m_lines.begin() + std::ptrdiff_t(i));
            m_lines.emplace_back(sink, String());
            return m_lines.back().second;
        }

    private:
        std::vector<std::pair<std::shared_ptr<Sink>, String>> m_lines;
    };

    // Relaxed would do for the flag alone; release pairs it with pause(),
    // which reads it before deciding to leave the stream alone.
    void markShared()
    {
        if (!m_sharedWithOthers.load(std::memory_order_relaxed))
            m_sharedWithOthers.store(true, std::memory_order_release);
    }

    void gather(const Char* text, std::streamsize count)
    {
        static thread_local ThreadLines threadLines;
        String& line = threadLines.lineFor(m_sink);
        const Char* end = text + count;
        while (const Char* feed = Traits::find(text, size_t(end - text), Char('\n'))) {
            line.append(text, size_t(feed - text));
            m_sink->callOther(line);
            line.clear();
            text = feed + 1;
        }
        line.append(text, size_t(end - text));
    }

    std::basic_ostream<Char>& m_stream;
    std::basic_streambuf<Char>* m_previous;
    const std::thread::id m_owner;
    const std::shared_ptr<Sink> m_sink;
    std::atomic<bool> m_detached{false};
    std::atomic<bool> m_sharedWithOthers{false};
    bool m_restored = false; // touched by the owning thread only
    String m_pending;
    String m_block;
};
