#include "FieldChange.h"

#include "ListMemory.h"

#include <Inventor/fields/SoMField.h>
#include <Inventor/fields/SoSField.h>

#include <algorithm>
#include <cstring>

FieldChange::FieldChange(SoField* field)
    : m_field(field)
{}

std::unique_ptr<FieldChange> FieldChange::between(const FieldState& before, SoField* field)
{
    if (!field || before.matches(field))
        return nullptr;
    std::unique_ptr<FieldChange> change(new FieldChange(field));
    SoField* kept = before.copy();
    if (!kept || !ListMemory::isPlain(field) || kept->getTypeId() != field->getTypeId()) {
        change->m_before = FieldState(kept);
        change->m_after = FieldState(field);
        return change;
    }
    auto* was = static_cast<SoMField*>(kept);
    auto* now = static_cast<SoMField*>(field);
    const std::size_t size = std::size_t(ListMemory::valueSize(now));
    const int shared = std::min(was->getNum(), now->getNum());
    const char* a = ListMemory::values(was);
    const char* b = ListMemory::values(now);
    const int start = shared > 0 ? int(ListMemory::firstDifference(a, b, shared * size) / size) : 0;
    const int room = shared - start;
    const int tail = room > 0 ? int(ListMemory::commonTail(a + (was->getNum() - room) * size,
                                                           b + (now->getNum() - room) * size, room * size) /
                                    size)
                              : 0;
    auto span = std::make_unique<Span>();
    span->start = start;
    span->totalBefore = was->getNum();
    span->totalAfter = now->getNum();
    span->countBefore = was->getNum() - start - tail;
    span->countAfter = now->getNum() - start - tail;
    span->before = QByteArray(a + start * size, int(span->countBefore * size));
    span->after = QByteArray(b + start * size, int(span->countAfter * size));
    span->ignoredBefore = kept->isIgnored();
    span->ignoredAfter = field->isIgnored();
    span->defaultBefore = kept->isDefault();
    span->defaultAfter = field->isDefault();
    change->m_span = std::move(span);
    return change;
}

bool FieldChange::canJoin(const FieldChange& later) const
{
    return m_field == later.m_field && !m_span && !later.m_span &&
           m_field->isOfType(SoSField::getClassTypeId());
}

bool FieldChange::join(FieldChange& later)
{
    m_after = std::move(later.m_after);
    return !m_before.matches(m_after.copy());
}

bool FieldChange::onlyClearsDefault() const
{
    SoField* before = m_before.copy();
    SoField* after = m_after.copy();
    return !m_span && before && after && before->isDefault() && !after->isDefault() &&
           before->isIgnored() == after->isIgnored() && m_before.holdsValueOf(after);
}

void FieldChange::writeBefore() const
{
    if (m_span)
        writeSpan(false);
    else
        m_before.writeInto(m_field);
}

void FieldChange::writeAfter() const
{
    if (m_span)
        writeSpan(true);
    else
        m_after.writeInto(m_field);
}

void FieldChange::writeSpan(bool after) const
{
    auto* list = static_cast<SoMField*>(m_field);
    const Span& span = *m_span;
    const int count = after ? span.countAfter : span.countBefore;
    const int otherCount = after ? span.countBefore : span.countAfter;
    const int total = after ? span.totalAfter : span.totalBefore;
    const int otherTotal = after ? span.totalBefore : span.totalAfter;
    const QByteArray& bytes = after ? span.after : span.before;
    // The command's own undo or redo has run first: it may have put the rows
    // back already, or left the field as the other side of the change.
    const int now = list->getNum();
    if (now != total) {
        if (now != otherTotal)
            return;
        if (count > otherCount)
            list->insertSpace(span.start + otherCount, count - otherCount);
        else
            list->deleteValues(span.start + count, otherCount - count);
    }
    const std::size_t size = std::size_t(ListMemory::valueSize(list));
    char* values = ListMemory::values(list);
    if (bytes.size() > 0 && std::memcmp(values + span.start * size, bytes.constData(), bytes.size()) != 0) {
        std::memcpy(values + span.start * size, bytes.constData(), bytes.size());
        list->touch();
    }
    list->setIgnored(after ? span.ignoredAfter : span.ignoredBefore);
    list->setDefault(after ? span.defaultAfter : span.defaultBefore);
}
