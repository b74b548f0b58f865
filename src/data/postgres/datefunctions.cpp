#include "data/postgres/functionscript.h"

namespace data::postgres {

// Dates are timestamps without a zone, exact to the second.
const char dateFunctions[] = R"sql(
-- Seconds since 1899-12-30 and back; jet_moment keeps to the years that columns hold, 100 to 9999.
CREATE OR REPLACE FUNCTION jet_seconds(at timestamp) RETURNS bigint LANGUAGE sql IMMUTABLE STRICT PARALLEL SAFE AS $$
    SELECT extract(epoch FROM at)::bigint + 2209161600 $$;

CREATE OR REPLACE FUNCTION jet_at(seconds float8) RETURNS timestamp LANGUAGE sql IMMUTABLE STRICT PARALLEL SAFE AS $$
    SELECT CASE WHEN seconds BETWEEN -1.8e11 AND 3.2e11
        THEN timestamp '1899-12-30' + make_interval(days => floor(seconds / 86400)::integer,
                                                    secs => seconds - floor(seconds / 86400) * 86400) END $$;

CREATE OR REPLACE FUNCTION jet_moment(seconds float8) RETURNS timestamp
LANGUAGE sql IMMUTABLE STRICT PARALLEL SAFE AS $$
    SELECT CASE WHEN seconds BETWEEN jet_seconds(timestamp '0100-01-01') AND jet_seconds(timestamp '9999-12-31 23:59:59')
        THEN jet_at(seconds) END $$;

CREATE OR REPLACE FUNCTION jet_days(at timestamp) RETURNS float8 LANGUAGE sql IMMUTABLE STRICT PARALLEL SAFE AS $$
    SELECT jet_seconds(at) / 86400.0::float8 $$;

CREATE OR REPLACE FUNCTION jet_daystodate(days float8) RETURNS timestamp
LANGUAGE sql IMMUTABLE STRICT PARALLEL SAFE AS $$ SELECT jet_at(round(days * 86400)) $$;

CREATE OR REPLACE FUNCTION jet_adddays(at timestamp, days float8) RETURNS timestamp
LANGUAGE sql IMMUTABLE STRICT PARALLEL SAFE AS $$ SELECT jet_at(jet_seconds(at) + round(days * 86400)) $$;

CREATE OR REPLACE FUNCTION jet_makedate(y integer, m integer, d integer) RETURNS date
LANGUAGE plpgsql IMMUTABLE STRICT PARALLEL SAFE AS $$
BEGIN
    IF y < 1 OR y > 9999 OR m < 1 OR m > 12 OR d < 1 OR d > 31 THEN RETURN NULL; END IF;
    IF d > 28 AND extract(month FROM make_date(y, m, 1) + (d - 1)) <> m THEN RETURN NULL; END IF;
    RETURN make_date(y, m, d);
END $$;

CREATE OR REPLACE FUNCTION jet_day(at timestamp) RETURNS integer LANGUAGE sql IMMUTABLE STRICT PARALLEL SAFE AS $$
    SELECT extract(day FROM at)::integer $$;
CREATE OR REPLACE FUNCTION jet_month(at timestamp) RETURNS integer LANGUAGE sql IMMUTABLE STRICT PARALLEL SAFE AS $$
    SELECT extract(month FROM at)::integer $$;
CREATE OR REPLACE FUNCTION jet_year(at timestamp) RETURNS integer LANGUAGE sql IMMUTABLE STRICT PARALLEL SAFE AS $$
    SELECT extract(year FROM at)::integer $$;
CREATE OR REPLACE FUNCTION jet_hour(at timestamp) RETURNS integer LANGUAGE sql IMMUTABLE STRICT PARALLEL SAFE AS $$
    SELECT extract(hour FROM at)::integer $$;
CREATE OR REPLACE FUNCTION jet_minute(at timestamp) RETURNS integer LANGUAGE sql IMMUTABLE STRICT PARALLEL SAFE AS $$
    SELECT extract(minute FROM at)::integer $$;
CREATE OR REPLACE FUNCTION jet_second(at timestamp) RETURNS integer LANGUAGE sql IMMUTABLE STRICT PARALLEL SAFE AS $$
    SELECT extract(second FROM at)::integer $$;

-- 1 is Sunday; 0 means as the system has it, which is Monday in Greece.
CREATE OR REPLACE FUNCTION jet_firstday(value float8) RETURNS integer LANGUAGE sql IMMUTABLE STRICT PARALLEL SAFE AS $$
    SELECT CASE WHEN jet_whole(value) = 0 THEN 2 WHEN jet_whole(value) BETWEEN 1 AND 7 THEN jet_whole(value)::integer
        ELSE 1 END $$;

-- From 0, counted from the first day of the week.
CREATE OR REPLACE FUNCTION jet_dayinweek(at date, first integer) RETURNS integer
LANGUAGE sql IMMUTABLE STRICT PARALLEL SAFE AS $$ SELECT (extract(dow FROM at)::integer - (first - 1) + 7) % 7 $$;

CREATE OR REPLACE FUNCTION jet_weekday(at timestamp, first float8 DEFAULT 1) RETURNS integer
LANGUAGE sql IMMUTABLE STRICT PARALLEL SAFE AS $$ SELECT jet_dayinweek(at::date, jet_firstday(first)) + 1 $$;

-- `least` is how many days the first week of a year must have in it: 1, 4 or 7.
CREATE OR REPLACE FUNCTION jet_firstweek(y integer, first integer, least_days integer) RETURNS date
LANGUAGE sql IMMUTABLE STRICT PARALLEL SAFE AS $$
    SELECT make_date(y, 1, 1) + CASE WHEN 7 - jet_dayinweek(make_date(y, 1, 1), first) >= least_days
        THEN -jet_dayinweek(make_date(y, 1, 1), first) ELSE 7 - jet_dayinweek(make_date(y, 1, 1), first) END $$;

CREATE OR REPLACE FUNCTION jet_weekofyear(at date, first integer, least_days integer) RETURNS integer
LANGUAGE plpgsql IMMUTABLE STRICT PARALLEL SAFE AS $$
DECLARE
    y integer := extract(year FROM at);
    start date := jet_firstweek(y, first, least_days);
BEGIN
    IF least_days > 1 THEN
        IF at < start THEN start := jet_firstweek(y - 1, first, least_days); END IF;
        IF at >= jet_firstweek(y + 1, first, least_days) THEN start := jet_firstweek(y + 1, first, least_days); END IF;
    END IF;
    RETURN (at - start) / 7 + 1;
END $$;

-- An index stands on jet_dateadd. Bodies that are bound when they are made need no search path, which the server's own
-- housekeeping doesn't have, and the planner writes them out in place.
DROP FUNCTION IF EXISTS jet_addmonths(timestamp, bigint);  -- of older offices
-- Null beyond the years 100 to 9999; the sum is looked at before it is made, since the server fails at one out of range.
CREATE OR REPLACE FUNCTION jet_addmonths(at timestamp, unit float8, number float8) RETURNS timestamp
LANGUAGE sql IMMUTABLE PARALLEL SAFE
    RETURN CASE WHEN abs(number) < 150000 / unit THEN
        CASE WHEN date_part('year', at) * 12 + date_part('month', at) - 1 + unit * round(number) BETWEEN 1200 AND 119999
            THEN at + make_interval(months => (unit * round(number))::integer) END END;
CREATE OR REPLACE FUNCTION jet_addseconds(at timestamp, unit float8, number float8) RETURNS timestamp
LANGUAGE sql IMMUTABLE PARALLEL SAFE
    RETURN CASE WHEN abs(number) < 4e11 / unit THEN
        CASE WHEN date_part('epoch', at) + unit * round(number) BETWEEN -59011459200 AND 253402300799
            THEN at + make_interval(secs => unit * round(number)) END END;

CREATE OR REPLACE FUNCTION jet_dateadd(interval_name text, number float8, at timestamp) RETURNS timestamp
LANGUAGE sql IMMUTABLE PARALLEL SAFE
    RETURN CASE lower(interval_name COLLATE "C")
        WHEN 'yyyy' THEN jet_addmonths(at, 12, number)
        WHEN 'q' THEN jet_addmonths(at, 3, number)
        WHEN 'm' THEN jet_addmonths(at, 1, number)
        WHEN 'd' THEN jet_addseconds(at, 86400, number)
        WHEN 'y' THEN jet_addseconds(at, 86400, number)
        WHEN 'w' THEN jet_addseconds(at, 86400, number)
        WHEN 'ww' THEN jet_addseconds(at, 604800, number)
        WHEN 'h' THEN jet_addseconds(at, 3600, number)
        WHEN 'n' THEN jet_addseconds(at, 60, number)
        WHEN 's' THEN jet_addseconds(at, 1, number) END;

-- Boundaries crossed from the first date to the second, not time elapsed: 31 December to 1 January is a year.
CREATE OR REPLACE FUNCTION jet_datediff(interval_name text, a timestamp, b timestamp, first float8 DEFAULT 1,
                                        first_week float8 DEFAULT 1) RETURNS bigint
LANGUAGE plpgsql IMMUTABLE STRICT PARALLEL SAFE AS $$
DECLARE
    years integer := jet_year(b) - jet_year(a);
    days integer := b::date - a::date;
    week integer := jet_firstday(first);
BEGIN
    CASE lower(interval_name COLLATE "C")
        WHEN 'yyyy' THEN RETURN years;
        WHEN 'q' THEN RETURN years * 4 + (jet_month(b) - 1) / 3 - (jet_month(a) - 1) / 3;
        WHEN 'm' THEN RETURN years * 12 + jet_month(b) - jet_month(a);
        WHEN 'd', 'y' THEN RETURN days;
        WHEN 'w' THEN RETURN days / 7;
        WHEN 'ww' THEN RETURN (days - jet_dayinweek(b::date, week) + jet_dayinweek(a::date, week)) / 7;
        WHEN 'h' THEN RETURN floor(jet_seconds(b) / 3600.0) - floor(jet_seconds(a) / 3600.0);
        WHEN 'n' THEN RETURN floor(jet_seconds(b) / 60.0) - floor(jet_seconds(a) / 60.0);
        WHEN 's' THEN RETURN jet_seconds(b) - jet_seconds(a);
        ELSE RETURN NULL;
    END CASE;
END $$;

CREATE OR REPLACE FUNCTION jet_datepart(interval_name text, at timestamp, first float8 DEFAULT 1,
                                        first_week float8 DEFAULT 1) RETURNS integer
LANGUAGE plpgsql IMMUTABLE STRICT PARALLEL SAFE AS $$
BEGIN
    CASE lower(interval_name COLLATE "C")
        WHEN 'yyyy' THEN RETURN jet_year(at);
        WHEN 'q' THEN RETURN (jet_month(at) - 1) / 3 + 1;
        WHEN 'm' THEN RETURN jet_month(at);
        WHEN 'y' THEN RETURN extract(doy FROM at);
        WHEN 'd' THEN RETURN jet_day(at);
        WHEN 'w' THEN RETURN jet_weekday(at, first);
        WHEN 'ww' THEN
            RETURN jet_weekofyear(at::date, jet_firstday(first),
                                  CASE jet_whole(first_week) WHEN 3 THEN 7 WHEN 2 THEN 4 ELSE 1 END);
        WHEN 'h' THEN RETURN jet_hour(at);
        WHEN 'n' THEN RETURN jet_minute(at);
        WHEN 's' THEN RETURN jet_second(at);
        ELSE RETURN NULL;
    END CASE;
END $$;

-- Months and days out of range run over into the next or last.
CREATE OR REPLACE FUNCTION jet_dateserial(y float8, m float8, d float8) RETURNS timestamp
LANGUAGE plpgsql IMMUTABLE STRICT PARALLEL SAFE AS $$
DECLARE
    full_year integer;
BEGIN
    IF round(y) NOT BETWEEN 0 AND 9999 OR abs(m) > 100000 OR abs(d) > 1000000 THEN RETURN NULL; END IF;
    full_year := round(y) + CASE WHEN round(y) < 30 THEN 2000 WHEN round(y) < 100 THEN 1900 ELSE 0 END;
    IF full_year + floor((round(m) - 1) / 12) NOT BETWEEN -1500 AND 13000 THEN RETURN NULL; END IF;
    RETURN jet_moment(jet_seconds(make_date(full_year, 1, 1)
                                  + make_interval(months => round(m)::integer - 1, days => round(d)::integer - 1)));
END $$;

CREATE OR REPLACE FUNCTION jet_timeserial(h float8, m float8, s float8) RETURNS timestamp
LANGUAGE sql IMMUTABLE STRICT PARALLEL SAFE AS $$
    SELECT CASE WHEN greatest(abs(h), abs(m), abs(s)) <= 1000000
        THEN jet_at(round(h) * 3600 + round(m) * 60 + round(s)) END $$;

CREATE OR REPLACE FUNCTION jet_datevalue(at timestamp) RETURNS timestamp
LANGUAGE sql IMMUTABLE STRICT PARALLEL SAFE AS $$ SELECT date_trunc('day', at) $$;
CREATE OR REPLACE FUNCTION jet_timevalue(at timestamp) RETURNS timestamp
LANGUAGE sql IMMUTABLE STRICT PARALLEL SAFE AS $$ SELECT timestamp '1899-12-30' + (at - date_trunc('day', at)) $$;

CREATE OR REPLACE FUNCTION jet_now() RETURNS timestamp LANGUAGE sql STABLE PARALLEL SAFE AS $$
    SELECT date_trunc('second', statement_timestamp()::timestamp) $$;
CREATE OR REPLACE FUNCTION jet_date() RETURNS timestamp LANGUAGE sql STABLE PARALLEL SAFE AS $$
    SELECT date_trunc('day', statement_timestamp()::timestamp) $$;
CREATE OR REPLACE FUNCTION jet_time() RETURNS timestamp LANGUAGE sql STABLE PARALLEL SAFE AS $$
    SELECT jet_timevalue(jet_now()) $$;

-- A text as a date, a time or both, day first, in the forms that people type.
CREATE OR REPLACE FUNCTION jet_parseday(value text) RETURNS date LANGUAGE plpgsql STABLE STRICT PARALLEL SAFE AS $$
DECLARE
    p text[] := regexp_match(value, '^([0-9]{1,4})([/.-])([0-9]{1,4})(?:\2([0-9]{1,4}))?$');
    y integer;
BEGIN
    IF p IS NULL THEN RETURN NULL; END IF;
    IF p[4] IS NOT NULL AND length(p[1]) >= 3 THEN
        IF length(p[3]) > 2 OR length(p[4]) > 2 OR p[1]::integer < 100 THEN RETURN NULL; END IF;
        RETURN coalesce(jet_makedate(p[1]::integer, p[3]::integer, p[4]::integer),
                        jet_makedate(p[1]::integer, p[4]::integer, p[3]::integer));
    END IF;
    IF length(p[1]) > 2 OR length(p[3]) > 2 THEN RETURN NULL; END IF;
    IF p[4] IS NULL THEN
        y := extract(year FROM jet_date());
    ELSE
        y := p[4]::integer + CASE WHEN length(p[4]) > 2 THEN 0 WHEN p[4]::integer < 30 THEN 2000 ELSE 1900 END;
    END IF;
    IF y < 100 THEN RETURN NULL; END IF;
    RETURN coalesce(jet_makedate(y, p[3]::integer, p[1]::integer), jet_makedate(y, p[1]::integer, p[3]::integer));
END $$;

-- The second of the day. `half` is 'a', 'p' or empty.
CREATE OR REPLACE FUNCTION jet_parsetime(value text, half text) RETURNS integer
LANGUAGE plpgsql IMMUTABLE STRICT PARALLEL SAFE AS $$
DECLARE
    p text[] := regexp_match(value, '^([0-9]{1,2})(?::([0-9]{1,2}))?(?::([0-9]{1,2}))?$');
    h integer := p[1]::integer;
    m integer := coalesce(p[2], '0')::integer;
    s integer := coalesce(p[3], '0')::integer;
BEGIN
    IF p IS NULL OR (p[2] IS NULL AND half = '') THEN RETURN NULL; END IF;
    IF half <> '' THEN
        IF h < 1 OR h > 12 THEN RETURN NULL; END IF;
        h := h % 12 + CASE WHEN half = 'p' THEN 12 ELSE 0 END;
    END IF;
    RETURN CASE WHEN h < 24 AND m < 60 AND s < 60 THEN h * 3600 + m * 60 + s END;
END $$;

CREATE OR REPLACE FUNCTION jet_todate(value text) RETURNS timestamp LANGUAGE plpgsql STABLE STRICT PARALLEL SAFE AS $$
DECLARE
    words text := btrim(regexp_replace(fold(value), '[ \t\r\n\f\v\u00a0]+', ' ', 'g'), ' ');
    ending text := substring(words from '(π\.μ\.|μ\.μ\.|πμ|μμ|am|pm)$');
    half text := CASE WHEN ending IS NULL THEN '' WHEN ending IN ('μμ', 'μ.μ.', 'pm') THEN 'p' ELSE 'a' END;
    piece text;
    day date;
    seconds integer;
BEGIN
    IF length(value) > 64 THEN RETURN NULL; END IF;
    words := rtrim(left(words, length(words) - coalesce(length(ending), 0)), ' ');
    IF substr(words, 11, 1) = 't' THEN words := overlay(words placing ' ' from 11); END IF;
    IF words = '' OR words ~ ' .* ' THEN RETURN NULL; END IF;
    FOREACH piece IN ARRAY string_to_array(words, ' ') LOOP
        IF piece ~ ':' OR piece ~ '^[0-9]{1,2}$' THEN
            IF seconds IS NOT NULL THEN RETURN NULL; END IF;
            seconds := jet_parsetime(piece, half);
            IF seconds IS NULL THEN RETURN NULL; END IF;
        ELSE
            IF day IS NOT NULL THEN RETURN NULL; END IF;
            day := jet_parseday(piece);
            IF day IS NULL THEN RETURN NULL; END IF;
        END IF;
    END LOOP;
    IF half <> '' AND seconds IS NULL THEN RETURN NULL; END IF;
    RETURN coalesce(day, date '1899-12-30') + make_interval(secs => coalesce(seconds, 0));
END $$;
)sql";

}  // namespace data::postgres
