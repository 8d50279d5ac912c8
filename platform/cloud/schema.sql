-- What a server keeps for Quillet, for an administrator to install once in a database:
--     CREATE ROLE quillet_users NOLOGIN;
--     psql --single-transaction --set ON_ERROR_STOP=1 --file schema.sql
-- A user is a login role that is a member of quillet_users. The program never changes any of this.
--
-- The owner comes first in every key, so that the rows of one user lie together and every table can be
-- partitioned by the owner.

CREATE TABLE quillet_schema (
    version integer NOT NULL PRIMARY KEY
);
INSERT INTO quillet_schema (version) VALUES (1);

-- Where a user's history has got to. Every transaction that writes zones or records increments the revision
-- first, and thereby waits for the one before it. What devices report of themselves does not count.
CREATE TABLE quillet_heads (
    owner name NOT NULL PRIMARY KEY,
    epoch bytea NOT NULL,
    revision bigint NOT NULL,
    tag bytea NOT NULL
);

-- The tags of all revisions: what tells one history from another, also after a restore.
CREATE TABLE quillet_revisions (
    owner name NOT NULL,
    revision bigint NOT NULL,
    tag bytea NOT NULL,
    PRIMARY KEY (owner, revision)
);

CREATE TABLE quillet_zones (
    owner name NOT NULL,
    zone text NOT NULL,
    horizon bigint NOT NULL,
    PRIMARY KEY (owner, zone)
);

CREATE TABLE quillet_records (
    owner name NOT NULL,
    zone text NOT NULL,
    name text NOT NULL,
    type text NOT NULL,
    revision bigint NOT NULL,
    tombstone boolean NOT NULL,
    payload bytea NOT NULL,
    PRIMARY KEY (owner, zone, name)
);
CREATE INDEX quillet_records_by_revision ON quillet_records (owner, zone, revision, name);

CREATE TABLE quillet_assets (
    owner name NOT NULL,
    hash bytea NOT NULL,
    content bytea NOT NULL,
    PRIMARY KEY (owner, hash)
);

CREATE TABLE quillet_asset_uses (
    owner name NOT NULL,
    zone text NOT NULL,
    name text NOT NULL,
    hash bytea NOT NULL,
    PRIMARY KEY (owner, zone, name, hash)
);
CREATE INDEX quillet_asset_uses_by_hash ON quillet_asset_uses (owner, hash);

CREATE TABLE quillet_devices (
    owner name NOT NULL,
    zone text NOT NULL,
    device bytea NOT NULL,
    revision bigint NOT NULL,
    tag bytea,
    seen_at bigint NOT NULL,
    PRIMARY KEY (owner, zone, device)
);

GRANT SELECT ON quillet_schema TO quillet_users;
GRANT SELECT, INSERT, UPDATE ON quillet_heads TO quillet_users;
GRANT SELECT, INSERT ON quillet_revisions TO quillet_users;
GRANT SELECT, INSERT, UPDATE ON quillet_zones TO quillet_users;
GRANT SELECT, INSERT, UPDATE, DELETE ON quillet_records TO quillet_users;
GRANT SELECT, INSERT, DELETE ON quillet_assets TO quillet_users;
GRANT SELECT, INSERT, DELETE ON quillet_asset_uses TO quillet_users;
GRANT SELECT, INSERT, UPDATE, DELETE ON quillet_devices TO quillet_users;

-- What somebody else may create in a schema that is searched could run as the one who calls it. A server
-- before version 15, or a database that has been upgraded from one, lets everybody.
REVOKE CREATE ON SCHEMA public FROM PUBLIC;

-- FORCE: also for the role that owns the tables. A policy must never look at a setting that a client can
-- change; current_user is what the server itself authenticated.
ALTER TABLE quillet_heads ENABLE ROW LEVEL SECURITY;
ALTER TABLE quillet_heads FORCE ROW LEVEL SECURITY;
CREATE POLICY quillet_owner ON quillet_heads USING (owner = current_user) WITH CHECK (owner = current_user);

ALTER TABLE quillet_revisions ENABLE ROW LEVEL SECURITY;
ALTER TABLE quillet_revisions FORCE ROW LEVEL SECURITY;
CREATE POLICY quillet_owner ON quillet_revisions USING (owner = current_user) WITH CHECK (owner = current_user);

ALTER TABLE quillet_zones ENABLE ROW LEVEL SECURITY;
ALTER TABLE quillet_zones FORCE ROW LEVEL SECURITY;
CREATE POLICY quillet_owner ON quillet_zones USING (owner = current_user) WITH CHECK (owner = current_user);

ALTER TABLE quillet_records ENABLE ROW LEVEL SECURITY;
ALTER TABLE quillet_records FORCE ROW LEVEL SECURITY;
CREATE POLICY quillet_owner ON quillet_records USING (owner = current_user) WITH CHECK (owner = current_user);

ALTER TABLE quillet_assets ENABLE ROW LEVEL SECURITY;
ALTER TABLE quillet_assets FORCE ROW LEVEL SECURITY;
CREATE POLICY quillet_owner ON quillet_assets USING (owner = current_user) WITH CHECK (owner = current_user);

ALTER TABLE quillet_asset_uses ENABLE ROW LEVEL SECURITY;
ALTER TABLE quillet_asset_uses FORCE ROW LEVEL SECURITY;
CREATE POLICY quillet_owner ON quillet_asset_uses USING (owner = current_user) WITH CHECK (owner = current_user);

ALTER TABLE quillet_devices ENABLE ROW LEVEL SECURITY;
ALTER TABLE quillet_devices FORCE ROW LEVEL SECURITY;
CREATE POLICY quillet_owner ON quillet_devices USING (owner = current_user) WITH CHECK (owner = current_user);
