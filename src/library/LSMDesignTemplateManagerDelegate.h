#pragma once

class LSMDesignTemplate;

/// Decides what becomes of a design whose HTML another program has written. Main thread.
class LSMDesignTemplateManagerDelegate
{
public:
    virtual ~LSMDesignTemplateManagerDelegate() = default;

    /// Whether what is on disk takes the place of the HTML in memory.
    virtual bool shouldReloadChangedDesignFromFile(LSMDesignTemplate *design) = 0;

    /// It has, or could not be read.
    virtual void didReloadChangedDesignFromFile(LSMDesignTemplate *design) = 0;
};
