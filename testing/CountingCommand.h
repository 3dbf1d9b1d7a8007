#pragma once
#include <KalCommand.h>

#include <memory>

// A command that only counts what the history does with it. The counts are
// shared, so a command the history deletes late never writes to freed memory.
struct Counters
{
    int executed = 0;
    int undone = 0;
    int redone = 0;
    int deleted = 0;
};

class CountingCommand : public KalCommand
{
public:
    explicit CountingCommand(const std::shared_ptr<Counters>& counters)
        : m_counters(counters)
    {}
    ~CountingCommand() override { ++m_counters->deleted; }
    void execute() override { ++m_counters->executed; }
    void undo() override { ++m_counters->undone; }
    void redo() override { ++m_counters->redone; }

private:
    std::shared_ptr<Counters> m_counters;
};
