#include "data/postgres/functionscript.h"

namespace data::postgres {

// A value whose kind is known only at run time, a named parameter, is a text that begins with its kind: i whole number,
// r number, t text, b bytes in hexadecimal. The into functions are toColumn on the server, with its sentences; DV001
// and DV002 tell the engine which category they are.
const char conversionFunctions[] = R"sql(
CREATE OR REPLACE FUNCTION jet_toyesno(value text) RETURNS boolean LANGUAGE sql IMMUTABLE STRICT PARALLEL SAFE AS $$
    SELECT CASE fold(btrim(value, E' \t\r\n\f\v\u00a0')) WHEN 'true' THEN true WHEN 'ναι' THEN true
        WHEN 'false' THEN false WHEN 'οχι' THEN false ELSE jet_tonumber(value) <> 0 END $$;

CREATE OR REPLACE FUNCTION jet_vtext(value text) RETURNS text LANGUAGE sql IMMUTABLE STRICT PARALLEL SAFE AS $$
    SELECT CASE left(value, 1) WHEN 't' THEN substr(value, 2) END $$;
CREATE OR REPLACE FUNCTION jet_vnumber(value text) RETURNS float8 LANGUAGE sql IMMUTABLE STRICT PARALLEL SAFE AS $$
    SELECT CASE WHEN left(value, 1) IN ('i', 'r') THEN substr(value, 2)::float8 END $$;

CREATE OR REPLACE FUNCTION jet_vtonumber(value text) RETURNS float8 LANGUAGE sql IMMUTABLE STRICT PARALLEL SAFE AS $$
    SELECT coalesce(jet_vnumber(value), jet_tonumber(jet_vtext(value))) $$;
-- A whole number is a date in the stored form.
CREATE OR REPLACE FUNCTION jet_vtodate(value text) RETURNS timestamp LANGUAGE sql STABLE STRICT PARALLEL SAFE AS $$
    SELECT CASE left(value, 1) WHEN 'i' THEN jet_at(jet_vnumber(value)) WHEN 'r' THEN jet_daystodate(jet_vnumber(value))
        ELSE jet_todate(jet_vtext(value)) END $$;
CREATE OR REPLACE FUNCTION jet_vtoyesno(value text) RETURNS boolean LANGUAGE sql IMMUTABLE STRICT PARALLEL SAFE AS $$
    SELECT coalesce(jet_vnumber(value) <> 0, jet_toyesno(jet_vtext(value))) $$;
CREATE OR REPLACE FUNCTION jet_vtotext(value text) RETURNS text LANGUAGE sql IMMUTABLE STRICT PARALLEL SAFE AS $$
    SELECT CASE left(value, 1) WHEN 'i' THEN substr(value, 2) WHEN 't' THEN substr(value, 2)
        WHEN 'r' THEN jet_numbertext(jet_vnumber(value)) END $$;

CREATE OR REPLACE FUNCTION jet_refuse(code text, field text, why text) RETURNS void
LANGUAGE plpgsql IMMUTABLE AS $$
BEGIN
    RAISE EXCEPTION USING ERRCODE = code, MESSAGE = format('Η τιμή του πεδίου «%s» %s', field, why);
END $$;

CREATE OR REPLACE FUNCTION jet_into_whole(value float8, low bigint, high bigint, field text) RETURNS bigint
LANGUAGE plpgsql IMMUTABLE STRICT AS $$
BEGIN
    IF round(value) BETWEEN low AND high THEN RETURN round(value)::bigint; END IF;
    PERFORM jet_refuse('DV001', field, format('είναι έξω από τα όρια (%s έως %s).', low, high));
END $$;

CREATE OR REPLACE FUNCTION jet_into_real(value float8, farthest float8, field text) RETURNS float8
LANGUAGE plpgsql IMMUTABLE STRICT AS $$
BEGIN
    IF abs(value) <= farthest THEN RETURN CASE WHEN value = 0 THEN 0 ELSE value END; END IF;
    PERFORM jet_refuse('DV001', field, 'είναι έξω από τα όρια.');
END $$;

-- The length counts UTF-16 units, as the program and its boxes do.
CREATE OR REPLACE FUNCTION jet_into_text(value text, longest integer, field text) RETURNS text
LANGUAGE plpgsql IMMUTABLE STRICT AS $$
DECLARE
    units integer;
BEGIN
    IF longest = 0 OR octet_length(value) <= longest THEN RETURN value; END IF;
    units := length(value) + length(regexp_replace(value COLLATE "C", '[^\U00010000-\U0010ffff]', '', 'g'));
    IF units <= longest THEN RETURN value; END IF;
    PERFORM jet_refuse('DV002', field, format('έχει %s χαρακτήρες και χωράνε %s.', units, longest));
END $$;

CREATE OR REPLACE FUNCTION jet_into_date(value timestamp, field text) RETURNS timestamp
LANGUAGE plpgsql IMMUTABLE AS $$
BEGIN
    IF value IS NULL THEN PERFORM jet_refuse('DV001', field, 'δεν είναι ημερομηνία ή ώρα.'); END IF;
    IF value BETWEEN '0100-01-01' AND '9999-12-31 23:59:59' THEN RETURN value; END IF;
    PERFORM jet_refuse('DV001', field, 'είναι ημερομηνία έξω από τα έτη 100 έως 9999.');
END $$;

-- What doesn't read is refused, while Null stays Null.
CREATE OR REPLACE FUNCTION jet_read_number(value text, field text) RETURNS float8
LANGUAGE plpgsql IMMUTABLE STRICT AS $$
DECLARE
    number float8 := jet_tonumber(value);
BEGIN
    IF number IS NULL THEN
        PERFORM jet_refuse('DV001', field, CASE WHEN btrim(value, E' \t\r\n\f\v\u00a0') = ''
            THEN 'είναι κενή και χρειάζεται αριθμό.' ELSE 'δεν είναι αριθμός.' END);
    END IF;
    RETURN number;
END $$;
CREATE OR REPLACE FUNCTION jet_read_date(value text, field text) RETURNS timestamp
LANGUAGE plpgsql STABLE STRICT AS $$ BEGIN RETURN jet_into_date(jet_todate(value), field); END $$;
CREATE OR REPLACE FUNCTION jet_read_days(value float8, field text) RETURNS timestamp
LANGUAGE plpgsql IMMUTABLE STRICT AS $$ BEGIN RETURN jet_into_date(jet_daystodate(value), field); END $$;
CREATE OR REPLACE FUNCTION jet_read_yesno(value text, field text) RETURNS boolean
LANGUAGE plpgsql IMMUTABLE STRICT AS $$
BEGIN
    IF jet_toyesno(value) IS NULL THEN PERFORM jet_refuse('DV001', field, 'πρέπει να είναι Ναι ή Όχι.'); END IF;
    RETURN jet_toyesno(value);
END $$;
CREATE OR REPLACE FUNCTION jet_read_nothing(value anyelement, field text, why text) RETURNS void
LANGUAGE plpgsql IMMUTABLE STRICT AS $$ BEGIN PERFORM jet_refuse('DV001', field, why); END $$;

CREATE OR REPLACE FUNCTION jet_vread_number(value text, field text) RETURNS float8
LANGUAGE sql IMMUTABLE STRICT AS $$ SELECT coalesce(jet_vnumber(value), jet_read_number(coalesce(jet_vtext(value), '?'), field)) $$;
CREATE OR REPLACE FUNCTION jet_vread_date(value text, field text) RETURNS timestamp
LANGUAGE plpgsql STABLE STRICT AS $$ BEGIN RETURN jet_into_date(jet_vtodate(value), field); END $$;
CREATE OR REPLACE FUNCTION jet_vread_yesno(value text, field text) RETURNS boolean
LANGUAGE sql IMMUTABLE STRICT AS $$
    SELECT coalesce(jet_vnumber(value) <> 0, jet_read_yesno(coalesce(jet_vtext(value), '?'), field)) $$;
CREATE OR REPLACE FUNCTION jet_vread_binary(value text, field text) RETURNS bytea
LANGUAGE plpgsql IMMUTABLE STRICT AS $$
BEGIN
    IF left(value, 1) <> 'b' THEN PERFORM jet_refuse('DV001', field, 'δεν είναι δεδομένα αρχείου.'); END IF;
    RETURN decode(substr(value, 2), 'hex');
END $$;
)sql";

}  // namespace data::postgres
