import assert from 'node:assert/strict'
import { after, before, describe, it } from 'node:test'
import { Page } from './support/page.mjs'
import { Data, Server, isRunning, until } from './support/server.mjs'

describe('the page of a session', () => {
  let data
  let server
  before(async () => {
    data = new Data()
    server = await Server.start(data)
  })
  after(async () => {
    await server.stop()
    data.remove()
  })

  it('opens only with a cookie', async () => {
    await assert.rejects(Page.open(server, ''), { status: 401 })
    await assert.rejects(Page.open(server, `zanrole=${'0'.repeat(64)}`), { status: 401 })
  })

  it('opens only from a page of this server', async () => {
    const cookie = await server.cookieOf('admin')
    for (const origin of ['http://evil.example', `https://${server.host}`, ''])
      await assert.rejects(Page.open(server, cookie, { origin }), { status: 403 })
  })

  it('opens only at its own address', async () => {
    const cookie = await server.cookieOf('admin')
    await assert.rejects(Page.open(server, cookie, { path: '/' }), { status: 404 })
  })

  it('starts with a snapshot and passes events on word for word', async () => {
    const page = await Page.open(server, await server.cookieOf('admin'))
    const first = await page.snapshot()
    assert.equal(first.seq, 1)
    assert.equal(page.lines[0], first, 'nothing comes before the snapshot')
    page.sendRaw('{ "n" : 1,\n\t"do":"set", "value": "密码 \\u0041 😀", "exact": 1.10 }')
    await page.line((line) => line.ack === 1, 'acknowledgement')
    page.number = 1
    const report = await page.report()
    assert.deepEqual(report.received.slice(0, 2), [
      '{"gateway":"attach"}',
      '{ "n" : 1, \t"do":"set", "value": "密码 \\u0041 😀", "exact": 1.10 }',
    ])
    await page.close()
  })

  it('gives the worker data, login, files and language of its login', async () => {
    const reply = await server.logIn(data.user, 'Right-Password-1', { language: 'en' })
    const page = await Page.open(server, reply.headers['set-cookie'][0].split(';')[0])
    const { args, data: url } = await page.report()
    assert.deepEqual(args.filter((unused, i) => i !== 3), ['worker', `--user=${data.user}`, '--files', '--language', 'en'])
    // Not among the words, which everybody may read: a data URL may hold a password.
    assert.equal(url, data.url)
    await page.close()
  })

  it('answers a malformed message with an error and goes on', async () => {
    const page = await Page.open(server, await server.cookieOf('admin'))
    await page.snapshot()
    const refused = ['no json', '[]', '"do"', '{}', '{"n":7}', '{"n":7,"do":5}', '{"n":7,"do":"set"} {"do":"set"}',
      '{"n":7,"do":"set","gateway":"attach"}', '{"n":7,"do":"set","g\\u0061teway":"detach"}']
    for (const text of refused) {
      const from = page.lines.length
      page.sendRaw(text)
      const answer = await page.line((line) => line.error !== undefined, `error for ${text}`, from)
      assert.equal(answer.n, text.startsWith('{"n":7') && !text.includes('} {') ? 7 : undefined, text)
    }
    const report = await page.report()
    assert.deepEqual(report.received, ['{"gateway":"attach"}', '{"n":1,"do":"report"}'])
    await page.close()
  })

  it('loses its connection, not its session, over a message that is too large', async () => {
    const cookie = await server.cookieOf('admin')
    const page = await Page.open(server, cookie)
    await page.event({ do: 'set', value: 'typed' })
    page.tell({ do: 'set', value: 'x'.repeat(300 * 1024) })
    assert.equal(await page.closed, 1009)
    const again = await Page.open(server, cookie)
    assert.equal((await again.snapshot()).changes[1].value, 'typed')
    await again.close()
  })

  it('comes back after a reload to the same worker and the typed text, numbered anew', async () => {
    const cookie = await server.cookieOf('admin')
    const page = await Page.open(server, cookie)
    await page.event({ do: 'set', value: 'half a na' })
    const { pid } = await page.report()
    await page.close()
    const again = await Page.open(server, cookie)
    const first = await again.snapshot()
    assert.deepEqual([first.seq, first.ack, first.changes[1].value], [1, 0, 'half a na'])
    const report = await again.report()
    assert.equal(report.pid, pid)
    assert.ok(report.received.includes('{"gateway":"detach"}'))
    await again.close()
  })

  it('remembers the language that was chosen last', async () => {
    const cookie = await server.cookieOf('admin')
    const page = await Page.open(server, cookie)
    await page.event({ do: 'language', value: 'en' })
    await page.event({ do: 'language', value: 'xx' })
    assert.equal((await server.get('/api/session', { cookie })).body.language, 'en')
    await page.close()
  })

  it('is taken over by a second tab, which the first is told', async () => {
    const cookie = await server.cookieOf('admin')
    const first = await Page.open(server, cookie)
    const { pid } = await first.report()
    const second = await Page.open(server, cookie)
    assert.deepEqual(await first.bye(), { bye: 'taken' })
    assert.equal(await first.closed, 1000)
    await second.snapshot()
    assert.equal((await second.report()).pid, pid)
    await second.close()
  })

  it('gets a snapshot instead of what it missed when it is slow', async () => {
    const page = await Page.open(server, await server.cookieOf('admin'))
    await page.snapshot()
    page.socket.pause()
    page.tell({ do: 'flood', lines: 400, size: 100000 })
    await new Promise((next) => setTimeout(next, 1500))
    const from = page.lines.length
    page.socket.resume()
    await page.line((line) => line.snapshot === true && line.seq === 1, 'second snapshot', from)
    const bytes = page.lines.flatMap((line) => line.changes ?? []).reduce((sum, change) => sum + (change.filler?.length ?? 0), 0)
    assert.ok(bytes < 400 * 100000, `${bytes} bytes came`)
    await page.event({ do: 'set', value: 'still here' })
    await page.close()
  })

  it('ends with its worker and cookie at logging off', async () => {
    const cookie = await server.cookieOf('admin')
    const page = await Page.open(server, cookie)
    const { pid } = await page.report()
    const reply = await server.post('/api/logout', {}, { cookie })
    assert.equal(reply.status, 204)
    assert.match(reply.headers['set-cookie'][0], /^zanrole=; .*Max-Age=0/)
    assert.deepEqual(await page.bye(), { bye: 'ended' })
    await until(() => !isRunning(pid), 'the worker ended')
    assert.equal((await server.get('/api/session', { cookie })).status, 401)
    await assert.rejects(Page.open(server, cookie), { status: 401 })
    assert.match(data.log(), /operation="logout" outcome="ended"/)
    assert.match(data.log(), /operation="worker end" outcome="exit status 0"/)
  })

  it('ends when the person quits', async () => {
    const cookie = await server.cookieOf('admin')
    const page = await Page.open(server, cookie)
    page.tell({ do: 'quit' })
    assert.deepEqual(await page.bye(), { bye: 'ended' })
    assert.equal((await server.get('/api/session', { cookie })).status, 401)
  })

  it('exchanges files with its session, and with no other', async () => {
    const cookie = await server.cookieOf('admin')
    const other = await server.cookieOf('admin')
    const page = await Page.open(server, cookie)
    await page.event({ do: 'make', name: '用户 1.xml', value: '<a/>' })
    const address = `/api/files/${encodeURIComponent('用户 1.xml')}`
    const file = await server.get(address, { cookie })
    assert.deepEqual([file.status, file.text], [200, '<a/>'])
    assert.equal(file.headers['content-disposition'], `attachment; filename*=UTF-8''${encodeURIComponent('用户 1.xml')}`)
    assert.equal((await server.get(address, { cookie: other })).status, 404)
    assert.equal((await server.get(address)).status, 401)
    for (const name of ['..%2f..%2fetc%2fpasswd', '..', '%2e%2e', 'uploads', '', '%00', '%zz'])
      assert.equal((await server.get(`/api/files/${name}`, { cookie })).status, 404, name)

    const upload = await server.post('/api/upload?window=3&name=a%20b.xml', '<b/>', { cookie })
    assert.equal(upload.status, 204)
    const told = await page.line((line) => line.changes?.[0]?.uploaded, 'upload')
    assert.equal(told.changes[0].content, '<b/>')
    assert.equal(told.changes[0].uploaded.window, 3)
    assert.ok(told.changes[0].uploaded.path.endsWith('/a b.xml'))
    assert.equal((await server.post('/api/upload?window=3&name=x', '', {})).status, 401)
    assert.equal((await server.post('/api/upload?window=3&name=..%2fx', '', { cookie })).status, 400)
    assert.equal((await server.post('/api/upload?window=x&name=x', '', { cookie })).status, 400)
    await page.close()
  })
})
