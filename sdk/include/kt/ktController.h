#pragma once

#include <kt/Export.h>

#include <functional>
#include <string>
#include <vector>

class QKTDockWindowManager;
class QMainWindow;
class ktMessage;

/// The host's switchboard: messages, the simulation clock, the main window. GUI thread.
class KT_EXPORT ktController
{
public:
    using MessageCB = void (*)(ktMessage&);

    /// The host's main window; null before the host has made one. Also there, unseen, where the host runs
    /// without windows.
    static QMainWindow* getMainWindow();

    /// Where panels are docked; null before the host has made one.
    static QKTDockWindowManager* getDockWindowManager();

    /// Seconds of simulation time since the host started.
    static double getSimulationTime();

    /// Registers `callback` for messages called `name`. The same pair twice is kept once; null of either is
    /// ignored.
    static void addCB(const char* name, MessageCB callback);

    /// Takes the registration back; an unknown one is ignored.
    static void subCB(const char* name, MessageCB callback);

    /// Calls every callback registered under `name`, in order of registration, and answers how many there
    /// were. An exception of one is logged, see ktFailures, and keeps none of the others from their turn.
    static int sendMessage(const char* name, ktMessage& message);

    /// Delivers `message` to every module that asked for its id, in order of construction. An exception of
    /// one is logged, see ktFailures, and keeps none of the others from their turn. Answers how many failed.
    static int deliver(ktMessage& message);

    /// The names under which callbacks are registered now, in order of the bytes.
    static std::vector<std::string> messageNames();

    /// How many callbacks are registered, under all names.
    static int countCallbacks();

    /// For the host: takes back every callback for which `isGone` answers true, such as those of a library
    /// that is about to be unloaded.
    static void dropCallbacks(const std::function<bool(MessageCB)>& isGone);

    /// For the host: what the getters above give. Both windows stay the host's.
    static void setMainWindow(QMainWindow* window, QKTDockWindowManager* docks);
    static void setSimulationTime(double seconds);
};
