// What each dialect knows, beyond what its grammar tells: the grammar reads a dialect generously and takes words of the
// others.

const everywhere = "max min count sum cast rtrim ltrim replace upper lower row_number coalesce nullif abs round";

/// Columns by their names, as the grammar wants to know them.
export const columns = (names) => names.map((name) => ({ name, type: "varchar" }));

const words = (text) => new Set(text.split(/\s+/));

export const dialects = {
  sqlserver: {
    grammar: "tsql",
    quotedInAnyCase: true,
    functions: words(`${everywhere} isnull getdate substring left right str len charindex db_name object_id`),
    forbiddenWords: words("limit dual sysdate rownum recursive call minus nvarchar2 varchar2 number nclob clob"),
    forbiddenSigns: words("|| `"),
    catalogue: [{ name: "indexes", schema: "sys", columns: columns(["name", "object_id"]) }],
    valuesOfPackages: /(?!)/g,
  },
  oracle: {
    grammar: "oracle",
    quotedInAnyCase: false,
    functions: words(`${everywhere} nvl substr greatest to_char to_date instr length decode`),
    forbiddenWords: words(
      "limit top dbo recursive exec bit nvarchar datetime begintransaction go isnull ifnull now substring"),
    forbiddenSigns: words("[ `"),
    catalogue: [{ name: "dual", columns: columns(["dummy"]) }],
    valuesOfPackages: /\bsys\.login_user\b/gi,
  },
};

/// Words that may stand in front of a bracket without being functions.
export const notFunctions = words(
  `in values and or not on as exists select distinct where from join by over when then else case having union all any
   char varchar nvarchar varchar2 nvarchar2 number int decimal numeric datetime date key exec option maxrecursion if
   using set like between into update matched with`);
