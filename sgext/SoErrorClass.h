#pragma once

#include <Inventor/SbName.h>
#include <Inventor/SbString.h>
#include <Inventor/errors/SoError.h>

#include <cstdarg>

// What an error class of the scene graph needs to stand beside Coin's own
// (SoDebugError, SoReadError, ...): a type of its own under SoError's, and
// a handler callback with its data that belongs to this class alone. Coin
// writes each of its classes out by hand; the classes we add differ only in
// name, so they share this template.
template <class Derived>
class SoErrorClass : public SoError
{
public:
    static void setHandlerCallback(SoErrorCB* const function, void* const data)
    {
        s_callback = function;
        s_callbackData = data;
    }
    static SoErrorCB* getHandlerCallback() { return s_callback; }
    static void* getHandlerData() { return s_callbackData; }

    static SoType getClassTypeId() { return s_classTypeId; }
    SoType getTypeId() const override { return s_classTypeId; }

    // Formats the message like printf and hands the error to the class's
    // handler, or to SoError's when none is set. Coin's handleError() only
    // knows SoError's own handler, so the dispatch is done here.
    static void post(const char* const format, ...)
    {
        if (!format)
            return;
        va_list arguments;
        va_start(arguments, format);
        SbString message;
        message.vsprintf(format, arguments);
        va_end(arguments);
        Derived error;
        error.setDebugString(message.getString());
        void* data = nullptr;
        if (SoErrorCB* handler = error.getHandler(data))
            handler(&error, data);
    }

protected:
    static void initErrorClass(const char* name)
    {
        if (s_classTypeId != SoType::badType())
            return;
        s_classTypeId = SoType::createType(SoError::getClassTypeId(), SbName(name));
        s_callback = nullptr;
        s_callbackData = nullptr;
    }

    SoErrorCBPtr getHandler(void*& data) const override
    {
        if (s_callback) {
            data = s_callbackData;
            return s_callback;
        }
        // No handler of our own yet: whoever handles errors in general
        // hears of ours too, as with Coin's classes.
        data = SoError::getHandlerData();
        SoErrorCB* general = SoError::getHandlerCallback();
        return general ? general : &SoError::defaultHandlerCB;
    }

private:
    static SoType s_classTypeId;
    static SoErrorCB* s_callback;
    static void* s_callbackData;
};

template <class Derived>
SoType SoErrorClass<Derived>::s_classTypeId = SoType::badType();
template <class Derived>
SoErrorCB* SoErrorClass<Derived>::s_callback = nullptr;
template <class Derived>
void* SoErrorClass<Derived>::s_callbackData = nullptr;
