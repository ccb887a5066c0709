-- The functions of plcalc for PostGIS, on the Python package plcalc, which the server's Python must find.
--
-- A parcel is a polygon in a plane reference system. Sides and vertices are counted from 1: side k runs from vertex k to the
-- next one, and those of holes are numbered on. Give one line and one amount; see docs/postgis.md.
\echo Use "CREATE EXTENSION plcalc" to load this file. \quit

-- Whether the coordinates of a reference system are degrees.
CREATE FUNCTION plcalc_has_degrees(srid integer) RETURNS boolean
LANGUAGE sql STABLE PARALLEL SAFE AS $$
    SELECT coalesce((SELECT srtext LIKE 'GEOGC%' OR srtext LIKE 'COMPD_CS[%",GEOGCS[%' FROM spatial_ref_sys AS system WHERE system.srid = $1), false)
$$;

CREATE FUNCTION plcalc_divide_wkb(
    parcel bytea, srid integer, degrees boolean,
    parallel_to integer, perpendicular_to integer, through_vertex integer, at_bearing double precision, along bytea,
    place_side integer, place_distance double precision, through_point bytea, bearing double precision,
    area double precision, share text, width double precision, parts integer, amounts text,
    opposite boolean, any_pieces boolean, decimals integer, tolerance double precision, alternative integer)
RETURNS TABLE (number integer, piece geometry, line geometry, amount integer, area_ double precision,
               asked double precision, residual double precision, decimals_ integer, status text, reason text)
LANGUAGE plpython3u IMMUTABLE PARALLEL SAFE ROWS 2 COST 10000 AS $$
    from plcalc import postgis
    line = postgis.line_arguments(parallel_to, perpendicular_to, through_vertex, at_bearing, along, place_side,
                                  place_distance, through_point, bearing)
    held = postgis.amount_arguments(area, share, width, parts, amounts)
    return postgis.divide_rows(parcel, srid, degrees, line, held, opposite, any_pieces, decimals, tolerance,
                               alternative)
$$;

-- The pieces of a parcel with the line that cuts each off. A refused parcel is one row without them: status and reason say
-- why.
CREATE FUNCTION plcalc_divide(
    parcel geometry,
    parallel_to integer DEFAULT NULL, perpendicular_to integer DEFAULT NULL, through_vertex integer DEFAULT NULL,
    at_bearing double precision DEFAULT NULL, along geometry DEFAULT NULL, place_side integer DEFAULT NULL,
    place_distance double precision DEFAULT NULL, through_point geometry DEFAULT NULL,
    bearing double precision DEFAULT NULL,
    area double precision DEFAULT NULL, share text DEFAULT NULL, width double precision DEFAULT NULL,
    parts integer DEFAULT NULL, amounts text DEFAULT NULL,
    opposite boolean DEFAULT false, any_pieces boolean DEFAULT false, decimals integer DEFAULT NULL,
    tolerance double precision DEFAULT 1e-6, alternative integer DEFAULT 1)
RETURNS TABLE (number integer, piece geometry, line geometry, amount integer, area_held double precision,
               asked double precision, residual double precision, ends_decimals integer, status text, reason text)
LANGUAGE sql STABLE PARALLEL SAFE ROWS 2 COST 10000 AS $$
    SELECT * FROM plcalc_divide_wkb(
        ST_AsBinary($1), ST_SRID($1), plcalc_has_degrees(ST_SRID($1)), $2, $3, $4, $5,
        ST_AsBinary(ST_Force2D($6), 'NDR'), $7, $8, ST_AsBinary(ST_Force2D($9), 'NDR'), $10, $11, $12, $13, $14, $15, $16,
        $17, $18, $19, $20)
$$;

CREATE FUNCTION plcalc_measure_wkb(parcel bytea, degrees boolean,
    OUT area double precision, OUT perimeter double precision, OUT vertices integer, OUT anticlockwise boolean,
    OUT status text, OUT reason text)
LANGUAGE plpython3u IMMUTABLE PARALLEL SAFE COST 5000 AS $$
    from plcalc import postgis
    return postgis.measure_row(parcel, degrees)
$$;

-- Area and perimeter of a parcel; or, without them, what is wrong with its boundary.
CREATE FUNCTION plcalc_measure(parcel geometry,
    OUT area double precision, OUT perimeter double precision, OUT vertices integer, OUT anticlockwise boolean,
    OUT status text, OUT reason text)
LANGUAGE sql STABLE PARALLEL SAFE COST 5000 AS $$
    SELECT * FROM plcalc_measure_wkb(ST_AsBinary($1), plcalc_has_degrees(ST_SRID($1)))
$$;

CREATE FUNCTION plcalc_feasible_wkb(
    parcel bytea, degrees boolean,
    parallel_to integer, perpendicular_to integer, through_vertex integer, at_bearing double precision, along bytea,
    place_side integer, place_distance double precision, through_point bytea, opposite boolean, any_pieces boolean)
RETURNS TABLE (least_area double precision, most_area double precision, least_is_had boolean, most_is_had boolean, status text,
               reason text)
LANGUAGE plpython3u IMMUTABLE PARALLEL SAFE ROWS 2 COST 10000 AS $$
    from plcalc import postgis
    line = postgis.line_arguments(parallel_to, perpendicular_to, through_vertex, at_bearing, along, place_side,
                                  place_distance, through_point, None)
    return postgis.feasible_rows(parcel, degrees, line, opposite, any_pieces)
$$;

-- The ranges of areas that a line can cut off. A parcel or a line that cannot be used is one row with status and reason.
CREATE FUNCTION plcalc_feasible(
    parcel geometry,
    parallel_to integer DEFAULT NULL, perpendicular_to integer DEFAULT NULL, through_vertex integer DEFAULT NULL,
    at_bearing double precision DEFAULT NULL, along geometry DEFAULT NULL, place_side integer DEFAULT NULL,
    place_distance double precision DEFAULT NULL, through_point geometry DEFAULT NULL,
    opposite boolean DEFAULT false, any_pieces boolean DEFAULT false)
RETURNS TABLE (least_area double precision, most_area double precision, least_is_had boolean, most_is_had boolean, status text,
               reason text)
LANGUAGE sql STABLE PARALLEL SAFE ROWS 2 COST 10000 AS $$
    SELECT * FROM plcalc_feasible_wkb(
        ST_AsBinary($1), plcalc_has_degrees(ST_SRID($1)), $2, $3, $4, $5, ST_AsBinary(ST_Force2D($6), 'NDR'), $7, $8,
        ST_AsBinary(ST_Force2D($9), 'NDR'), $10, $11)
$$;
