-- The template of a gateway's database. All columns are texts in the form in which they are shown.
CREATE TABLE CDR (
    port TEXT,
    sim TEXT,
    Direction TEXT,
    TypeOfCall TEXT,
    SimID TEXT,
    Dialed_CLI TEXT,
    Calling_Redirect TEXT,
    OriginateTime TEXT,
    AnswerTime TEXT,
    DisconnectTime TEXT,
    Duration TEXT,
    ClearCause TEXT,
    ReleaseCause TEXT,
    RSSI TEXT,
    BCCH TEXT,
    OperatorID TEXT
);

-- Messages that the gateway received, and what happened to messages.
CREATE TABLE SMS (port TEXT, sim TEXT, recvTime TEXT, resvNum TEXT, MSG TEXT);
CREATE TABLE LOG (port TEXT, sim TEXT, Log TEXT, time TEXT);
