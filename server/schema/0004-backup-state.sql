-- How the daily copies stand, so that every workstation can tell at its login.

CREATE TABLE IF NOT EXISTS backup_state (
  ID TINYINT NOT NULL PRIMARY KEY,
  SINCE DATETIME NOT NULL,
  LAST_COPY DATETIME,
  FAILURE VARCHAR(20)
) ENGINE=InnoDB DEFAULT CHARSET=latin5 COLLATE=latin5_turkish_ci;

INSERT IGNORE INTO backup_state (ID, SINCE) VALUES (1, NOW());
