#include "data/postgres/functionscript.h"

namespace data::postgres {

const char textFunctions[] = R"sql(
CREATE OR REPLACE FUNCTION jet_left(value text, count float8) RETURNS text
LANGUAGE sql IMMUTABLE STRICT PARALLEL SAFE AS $$ SELECT left(value, jet_count(count)) $$;
CREATE OR REPLACE FUNCTION jet_right(value text, count float8) RETURNS text
LANGUAGE sql IMMUTABLE STRICT PARALLEL SAFE AS $$ SELECT right(value, jet_count(count)) $$;
CREATE OR REPLACE FUNCTION jet_mid(value text, start float8) RETURNS text
LANGUAGE sql IMMUTABLE STRICT PARALLEL SAFE AS $$ SELECT substr(value, greatest(jet_count(start), 1)) $$;
CREATE OR REPLACE FUNCTION jet_mid(value text, start float8, count float8) RETURNS text
LANGUAGE sql IMMUTABLE STRICT PARALLEL SAFE AS $$
    SELECT left(substr(value, greatest(jet_count(start), 1)), jet_count(count)) $$;
CREATE OR REPLACE FUNCTION jet_len(value text) RETURNS integer
LANGUAGE sql IMMUTABLE STRICT PARALLEL SAFE AS $$ SELECT length(value) $$;
CREATE OR REPLACE FUNCTION jet_trim(value text) RETURNS text
LANGUAGE sql IMMUTABLE STRICT PARALLEL SAFE AS $$ SELECT btrim(value, ' ') $$;
CREATE OR REPLACE FUNCTION jet_ltrim(value text) RETURNS text
LANGUAGE sql IMMUTABLE STRICT PARALLEL SAFE AS $$ SELECT ltrim(value, ' ') $$;
CREATE OR REPLACE FUNCTION jet_rtrim(value text) RETURNS text
LANGUAGE sql IMMUTABLE STRICT PARALLEL SAFE AS $$ SELECT rtrim(value, ' ') $$;
CREATE OR REPLACE FUNCTION jet_space(count float8) RETURNS text
LANGUAGE sql IMMUTABLE STRICT PARALLEL SAFE AS $$ SELECT repeat(' ', least(jet_count(count), 65535)) $$;

-- As phoneKey().
CREATE OR REPLACE FUNCTION jet_phonekey(value text) RETURNS text
LANGUAGE sql IMMUTABLE STRICT PARALLEL SAFE AS $$
    SELECT CASE WHEN abroad THEN regexp_replace(CASE WHEN plus THEN digits ELSE substr(digits, 3) END, '^30', '')
        ELSE digits END
    FROM (SELECT plus, digits, plus OR digits LIKE '00%' AS abroad
        FROM (SELECT parts[1] = '+' AS plus, regexp_replace(parts[2], '[^0-9]', '', 'g') AS digits
            FROM regexp_match(value, '^[ \u00A0()./\u2010\u2011\u2012\u2013-]*(\+?)([0-9 \u00A0()./\u2010\u2011\u2012\u2013-]*)')
                AS parts) AS number) AS known $$;

-- Found by the fold; positions carry over as long as the fold drops no character, otherwise the texts are taken as
-- they are.
CREATE OR REPLACE FUNCTION jet_instr(start float8, value text, wanted text) RETURNS integer
LANGUAGE plpgsql IMMUTABLE STRICT PARALLEL SAFE AS $$
DECLARE
    first integer := greatest(jet_count(start), 1);
    at integer;
BEGIN
    IF length(fold(value)) = length(value) THEN
        value := fold(value);
        wanted := fold(wanted);
    END IF;
    IF first > 1 AND first > length(value) THEN RETURN 0; END IF;
    at := strpos(substr(value, first), wanted);
    RETURN CASE WHEN at = 0 THEN 0 ELSE at + first - 1 END;
END $$;

CREATE OR REPLACE FUNCTION jet_replace(value text, wanted text, by text) RETURNS text
LANGUAGE plpgsql IMMUTABLE STRICT PARALLEL SAFE AS $$
DECLARE
    folded text := fold(value);
    result text := '';
    at integer;
BEGIN
    IF length(folded) <> length(value) THEN RETURN CASE WHEN wanted = '' THEN value ELSE replace(value, wanted, by) END; END IF;
    wanted := fold(wanted);
    IF wanted = '' THEN RETURN value; END IF;
    LOOP
        at := strpos(folded, wanted);
        EXIT WHEN at = 0;
        result := result || left(value, at - 1) || by;
        value := substr(value, at + length(wanted));
        folded := substr(folded, at + length(wanted));
    END LOOP;
    RETURN result || value;
END $$;

-- What an accent means to capitals, which don't carry it: a vowel that it kept apart from the next gets a dialytika
-- (Μάιος, ΜΑΪΟΣ), and ή alone keeps its own, to be told from Η; U+E000 stands for that one until letters are exchanged.
CREATE OR REPLACE FUNCTION jet_uppermarks(value text) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$
    SELECT CASE WHEN value COLLATE "C" !~ '[ß\u0386-\u038f\u03ac-\u03af\u03cc-\u03ce]' THEN value ELSE
        replace(regexp_replace(regexp_replace(regexp_replace(value COLLATE "C",
            '([άέήίόύώΆΈΉΊΌΎΏ])[ιίΙΊ]', '\1ϊ', 'g'),
            '([άέήίόύώΆΈΉΊΌΎΏ])[υύΥΎ]', '\1ϋ', 'g'),
            '(?<![A-Za-z\u0386\u0388-\u03ce])[ήΉ](?![A-Za-z\u0386\u0388-\u03ce])', U&'\E000', 'g'),
            'ß', 'SS') END $$;

-- The least or greatest text by its fold; of equal ones, by their bytes, so that the order of rows doesn't matter.
CREATE OR REPLACE FUNCTION jet_lesser(a text, b text) RETURNS text LANGUAGE sql IMMUTABLE STRICT PARALLEL SAFE AS $$
    SELECT CASE WHEN fold(b) COLLATE "C" < fold(a) COLLATE "C" OR (fold(b) = fold(a) AND b COLLATE "C" < a COLLATE "C")
        THEN b ELSE a END $$;
CREATE OR REPLACE FUNCTION jet_greater(a text, b text) RETURNS text LANGUAGE sql IMMUTABLE STRICT PARALLEL SAFE AS $$
    SELECT CASE WHEN fold(b) COLLATE "C" > fold(a) COLLATE "C" OR (fold(b) = fold(a) AND b COLLATE "C" > a COLLATE "C")
        THEN b ELSE a END $$;
CREATE OR REPLACE AGGREGATE jet_min(text) (SFUNC = jet_lesser, STYPE = text);
CREATE OR REPLACE AGGREGATE jet_max(text) (SFUNC = jet_greater, STYPE = text);
CREATE OR REPLACE AGGREGATE min(boolean) (SFUNC = booland_statefunc, STYPE = boolean);
CREATE OR REPLACE AGGREGATE max(boolean) (SFUNC = boolor_statefunc, STYPE = boolean);

-- A row's Null counts as well, so the state is an array: empty before the first row.
CREATE OR REPLACE FUNCTION jet_keepfirst(kept anyarray, value anyelement) RETURNS anyarray
LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT CASE WHEN kept IS NULL THEN ARRAY[value] ELSE kept END $$;
CREATE OR REPLACE FUNCTION jet_keeplast(kept anyarray, value anyelement) RETURNS anyarray
LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT ARRAY[value] $$;
CREATE OR REPLACE FUNCTION jet_kept(kept anyarray) RETURNS anyelement
LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT kept[1] $$;
CREATE OR REPLACE AGGREGATE jet_first(anyelement) (SFUNC = jet_keepfirst, STYPE = anyarray, FINALFUNC = jet_kept);
CREATE OR REPLACE AGGREGATE jet_last(anyelement) (SFUNC = jet_keeplast, STYPE = anyarray, FINALFUNC = jet_kept);
)sql";

}  // namespace data::postgres
