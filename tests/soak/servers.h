#pragma once

/// The server under test: sends everything back until SIGTERM, and then checks itself. Writes its port, two
/// bytes in the order of the host, to `portPipe`. The memory counts from 10 seconds after so many connections
/// were open, or `seconds` / 2 when that is less. Returns the exit status; what is wrong is told on standard
/// output.
int serve(int portPipe, unsigned int connections, unsigned int seconds);

/// The same without the framework, for one connection after the other, without checks and for ever.
int servePlainly(int portPipe);
