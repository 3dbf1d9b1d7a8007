#pragma once

#include <ios>
#include <ostream>
#include <streambuf>
#include <string>

// Takes the place of a standard stream's buffer and hands what is written to
// a callback: blocks at once, single characters line by line. The stream gets
// its buffer back when the redirector is destroyed.
//
// No put area is set, so every character written singly reaches overflow()
// and every block xsputn(). A block is passed on at once, without flushing
// the characters collected before it: characters put one at a time show up
// after the next block, at the next line feed. That order is kept as it is.
// (The GNU library formats a number into one block, so numbers arrive as
// blocks; put() and std::endl's line feed are what come singly.)
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
        , m_callback(callback)
        , m_data(data)
    {
        m_stream.rdbuf(this);
    }

    ~StdStreamRedirector() override { m_stream.rdbuf(m_previous); }

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
        const Char character = Traits::to_char_type(c);
        if (character == Char('\n')) {
            if (m_callback)
                m_callback(m_pending.c_str(), 1, m_data);
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
        if (m_callback && count > 0) {
            m_block.assign(text, size_t(count));
            m_callback(m_block.c_str(), count, m_data);
        }
        return count;
    }

private:
    std::basic_ostream<Char>& m_stream;
    std::basic_streambuf<Char>* m_previous;
    std::basic_string<Char> m_pending;
    std::basic_string<Char> m_block;
    Callback m_callback;
    void* m_data;
};
