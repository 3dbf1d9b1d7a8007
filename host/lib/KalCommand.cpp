#include "KalCommand.h"

KalCommand::KalCommand() = default;

KalCommand::~KalCommand() = default;
