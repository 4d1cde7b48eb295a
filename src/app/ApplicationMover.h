#pragma once

/** Offers to move the program to where the system keeps its programs. This base never asks. */
class ApplicationMover
{
public:
    virtual ~ApplicationMover() = default;

    /** Never null. */
    static ApplicationMover *shared();
    /** Not owned; null brings the silent one back. */
    static void setShared(ApplicationMover *mover);

    /** Asks only if the program runs from elsewhere. */
    virtual void offerMoveToApplicationsFolder() {}
};
