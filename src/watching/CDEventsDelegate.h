#pragma once

class CDEvent;
class CDEvents;

/// Hears what a CDEvents watches. Borrowed by it.
class CDEventsDelegate
{
public:
    virtual ~CDEventsDelegate() = default;
    virtual void urlWatcherEventOccurred(CDEvents *urlWatcher, const CDEvent &event) = 0;
};
