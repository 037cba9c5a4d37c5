import assert from 'node:assert/strict'
import { it } from 'node:test'

const RUN = '执行'
// 请假, which the role of everyone may open.
const OBJECT = 34

export function holders(services) {
  const page = async (given = {}) => (await services.ask('listHolders', { objectID: OBJECT, operation: RUN, ...given })).body

  it('of a right are told with the right that each has', async () => {
    const { objectID, operation, rows, users, next } = await page()
    assert.deepEqual([objectID, operation, next], [OBJECT, RUN, null])
    assert.ok(rows.length > 0 && users.length > 5, `${rows.length} rows, ${users.length} users`)
    for (const { login, oid, right, effect, superUser, disabled } of users) {
      const { body } = await services.ask('getRight', { login, objectID: OBJECT, operation: RUN })
      assert.equal(oid, services.oidOf(login))
      assert.deepEqual([superUser, disabled], [body.superUser, body.disabled], login)
      if (!superUser) assert.deepEqual([right, effect], [body.right, body.effect], login)
    }
  })

  it('of a right are all for whom something is set', async () => {
    const { users } = await page()
    const logins = services.data.sql('select UserID from STUsers where uGroup = 0').split('\n')
    const told = new Set(users.map((user) => user.login))
    for (const login of logins.filter((one) => !told.has(one)))
      assert.equal((await services.ask('getRight', { login, objectID: OBJECT, operation: RUN })).body.effect, 'notSet', login)
  })

  it('of a right come page by page, each once', async () => {
    const whole = (await page()).users
    for (const limit of [1, 2, 5, whole.length, 1000]) {
      const found = []
      let after
      do {
        const { users, next } = await page({ limit, ...(after === undefined ? {} : { after }) })
        assert.ok(users.length <= limit && (users.length === limit || next === null), `${users.length} of ${limit}`)
        if (next !== null) assert.equal(next, users.at(-1).oid)
        found.push(...users)
        after = next
      } while (after !== null)
      assert.deepEqual(found, whole, `pages of ${limit}`)
    }
    assert.deepEqual((await page({ after: 1000000 })).users, [])
  })

  it('of a right on an object that is not there are the super users', async () => {
    const { rows, users } = await page({ objectID: 999999 })
    assert.deepEqual([rows, users.map((user) => user.login)], [[], ['admin']])
  })

  it('are refused for pages that nobody can mean', async () => {
    const statusOf = async (target) => (await services.ask('listHolders', {}, { target })).status
    const queries = ['limit=0', 'limit=1001', 'limit=-1', 'limit=1e2', 'limit=99999999999999999999', 'limit=x', 'after=x', 'after=1.5',
      'after=99999999999999999999', 'more=1']
    for (const query of queries) assert.equal(await statusOf(`/api/objects/${OBJECT}/holders?operation=x&${query}`), 400, query)
    assert.equal(await statusOf(`/api/objects/${OBJECT}/holders`), 400)
    for (const id of ['x', '1.5', '99999999999999999999', '1%20', '+1', '0x1', '-1'])
      assert.equal(await statusOf(`/api/objects/${id}/holders?operation=x`), 400, id)
  })

  it('are told to nobody who may not ask about all logins', async () => {
    const logins = services.data.sql('select UserID from STUsers where uGroup = 0').split('\n')
    const token = services.token({ logins: logins.join(',') })
    assert.equal((await services.ask('listHolders', { objectID: OBJECT, operation: RUN }, { token })).status, 403)
  })
}
